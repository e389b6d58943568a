// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"

#include "app/Browser.h"
#include "app/UserBrowser.h"
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
        if (QString file = QDir(folder).filePath(QStringLiteral(TARNWICK_BROWSER)); QFileInfo::exists(file))
            return file;
    }
    return {};
}

/// Whether loading the browser's library would end the program, as it does for the superuser, unless its sandbox is
/// switched off.
bool endsThisProgram()
{
    return platform::isSuperuser() && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX");
}

} // namespace

BrowserPicker::BrowserPicker(
    const LanguageTable& language, Messages& messages, Shell& shell, const QStringList& folders)
    : m_language(language)
    , m_messages(messages)
    , m_shell(shell)
    , m_folders(folders)
{
}

BrowserPicker::~BrowserPicker() = default;

QStringList BrowserPicker::usualFolders()
{
    const QString program = QApplication::applicationDirPath();
    return { program, program + QLatin1String("/../lib/tarnwick/browser") };
}

std::unique_ptr<Browser> BrowserPicker::makeBrowser()
{
    if (const QString library = libraryIn(m_folders); !library.isEmpty() && !endsThisProgram()) {
        QPluginLoader loader(library);
        if (auto* const factory = qobject_cast<BrowserFactory*>(loader.instance()))
            return std::unique_ptr<Browser>(factory->create());
        m_messages.tell(errorReport(m_language, "more.pickerFailed", loader.errorString()));
    }
    return std::make_unique<UserBrowser>(m_language, m_messages, m_shell);
}

void BrowserPicker::makeDialog()
{
    m_dialog = std::make_unique<dialog_getUrl>(makeBrowser(), m_language);
    QObject::connect(m_dialog.get(), &QDialog::finished, m_dialog.get(), [this] {
        const auto picked = std::exchange(m_picked, nullptr);
        if (m_dialog->getSuccess() && picked)
            picked(m_dialog->link());
    });
}

void BrowserPicker::pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked)
{
    const QWidget* const user = QApplication::activeWindow();
    if (!m_dialog)
        makeDialog();
    m_picked = std::move(picked);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->winId(); // Makes the system window, which must exist before its parent can be set.
    if (user)
        m_dialog->windowHandle()->setTransientParent(user->windowHandle());
    m_dialog->show();
    m_dialog->goUrl(url);
}
