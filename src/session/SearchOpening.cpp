// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SearchOpening.h"

#include <QTimer>

SearchOpening::SearchOpening(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, QObject* parent)
    : QObject(parent)
    , m_fileName(fileName)
    , m_search { options, prefs, {}, {} }
    , m_reader(fileName, m_search)
{
    // Later, so that `ended` never comes from within the constructor.
    QTimer::singleShot(0, this, [this] { m_reading.add([this] { return readSome(); }); });
}

bool SearchOpening::readSome()
{
    if (m_reader.readSome())
        return true;
    emit ended();
    return false;
}
