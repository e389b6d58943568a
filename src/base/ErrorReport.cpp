// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorReport.h"

#include "base/lang.h"

#include <QDir>
#include <QFileDevice>

Messages::Box errorReport(const LanguageTable& language, const char* doing, const QString& detail)
{
    return { Messages::Sign::Warning, language.text("lang.errTitle"), language.text(doing) + u'\n' + detail };
}

QString fileFailure(const QFileDevice& file)
{
    return QDir::toNativeSeparators(file.fileName()) + u'\n' + file.errorString();
}
