// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Browser.h"

#include <QObject>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

/// A page that keeps to itself: it stays in its view, asks nothing and shows no boxes.
class QuietPage final : public QWebEnginePage {
    Q_OBJECT

public:
    using QWebEnginePage::QWebEnginePage;

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    /// What would open in a new window opens in this page.
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
    void navigate(const QByteArray& url) override;
    void clear() override;
    void onNavigated(std::function<void(const QByteArray& url)> navigated) override;

private:
    QWebEngineProfile m_profile; ///< without a name, and so without a place on the disk
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
