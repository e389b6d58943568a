// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"

#include "app/Browser.h"
#include "app/dialog_getUrl.h"
#include "base/ErrorReport.h"
#include "base/Platform.h"
#include "base/lang.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>
#include <QWindow>

#include <utility>

namespace {

QString libraryIn(const QStringList& folders)
{
    for (const QString& folder : folders) {
        const QString file = QDir(folder).filePath(QStringLiteral(TARNWICK_BROWSER));
        if (QFileInfo::exists(file))
            return file;
    }
    return {};
}

} // namespace

BrowserPicker::BrowserPicker(const LanguageTable& language, Messages& messages, const QStringList& folders)
    : m_language(language)
    , m_messages(messages)
    , m_library(libraryIn(folders))
{
}

BrowserPicker::~BrowserPicker() = default;

QStringList BrowserPicker::usualFolders()
{
    const QString program = QApplication::applicationDirPath();
    return { program, program + QLatin1String("/../lib/tarnwick") };
}

const char* BrowserPicker::obstacle() const
{
    if (m_library.isEmpty())
        return "more.noPicker";
    // The browser's library ends a program that runs with all rights.
    const bool isRefused = platform::isSuperuser() && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX");
    return isRefused ? "more.pickerForAdmin" : nullptr;
}

bool BrowserPicker::makeDialog()
{
    QPluginLoader loader(m_library);
    auto* const factory = qobject_cast<BrowserFactory*>(loader.instance());
    if (!factory) {
        m_messages.tell(errorReport(m_language, "more.pickerFailed", loader.errorString()));
        return false;
    }
    m_dialog = std::make_unique<dialog_getUrl>(std::unique_ptr<Browser>(factory->create()), m_language);
    QObject::connect(m_dialog.get(), &QDialog::finished, m_dialog.get(), [this] {
        const auto picked = std::exchange(m_picked, nullptr);
        if (m_dialog->getSuccess() && picked)
            picked(m_dialog->link());
    });
    return true;
}

void BrowserPicker::pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked)
{
    const QWidget* const user = QApplication::activeWindow();
    if (!m_dialog && !makeDialog())
        return;
    m_picked = std::move(picked);
    m_dialog->goUrl(url);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->winId(); // makes the window, which is to stay above the one in which the user is
    if (user)
        m_dialog->windowHandle()->setTransientParent(user->windowHandle());
    m_dialog->show();
}
