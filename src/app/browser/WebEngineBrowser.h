// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Browser.h"

#include <QObject>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

/// A page that cannot leave its view: no new windows, no file dialogs, no message boxes, no console output.
class QuietPage final : public QWebEnginePage {
    Q_OBJECT

public:
    using QWebEnginePage::QWebEnginePage;

signals:
    /// The user follows a link or sends a form.
    void linkFollowed();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    /// A link that asks for a new window opens in this page.
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& old, const QStringList& types) override;
    void javaScriptAlert(const QUrl& origin, const QString& message) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& message) override;
    bool javaScriptPrompt(
        const QUrl& origin, const QString& message, const QString& proposal, QString* answer) override;
    void javaScriptConsoleMessage(
        JavaScriptConsoleMessageLevel level, const QString& message, int line, const QString& source) override;
};

class WebEngineBrowser final : public QObject, public Browser {
    Q_OBJECT

public:
    WebEngineBrowser();
    ~WebEngineBrowser() override;

    [[nodiscard]] QWidget* widget() override;
    [[nodiscard]] bool isEmbedded() const override { return true; }
    void navigate(const QByteArray& url) override;
    void clear() override;
    void onNavigated(std::function<void(const QByteArray& url)> navigated) override;
    void onLinkFollowed(std::function<void()> followed) override;

private:
    QWebEngineProfile m_profile; ///< A profile without a name keeps nothing on the disk.
    QPointer<QWebEngineView> m_view;
    QuietPage* m_page;
};

class WebEngineBrowserFactory final : public QObject, public BrowserFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TARNWICK_BROWSER_FACTORY)
    Q_INTERFACES(BrowserFactory)

public:
    [[nodiscard]] Browser* create() override;
};
