// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/browser/WebEngineBrowser.h"

#include <QQuickWindow>
#include <QWebEngineDownloadRequest>
#include <QtWebEngineQuick>
#include <QWebEngineSettings>

#include <utility>

namespace {

/// Whether a URL is one of the web. Parts of a page can have others, such as data URLs.
bool isOfTheWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// Stands in for a new window that a page asks for: its first navigation is done by the page itself.
class Detour final : public QWebEnginePage {
public:
    Detour(QWebEngineProfile* profile, QuietPage* page)
        : QWebEnginePage(profile, page)
        , m_page(page)
    {
    }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override
    {
        if (isOfTheWeb(url)) {
            emit m_page->linkFollowed();
            m_page->load(url);
        }
        deleteLater();
        return false;
    }

private:
    QuietPage* m_page;
};

} // namespace

bool QuietPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    if (isMainFrame && (type == NavigationTypeLinkClicked || type == NavigationTypeFormSubmitted))
        emit linkFollowed();
    return !isMainFrame || isOfTheWeb(url) || url == QUrl(QStringLiteral("about:blank"));
}

QWebEnginePage* QuietPage::createWindow(WebWindowType)
{
    return new Detour(profile(), this);
}

QStringList QuietPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&)
{
    return {};
}

void QuietPage::javaScriptAlert(const QUrl&, const QString&) { }

bool QuietPage::javaScriptConfirm(const QUrl&, const QString&)
{
    return false;
}

bool QuietPage::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*)
{
    return false;
}

void QuietPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) { }

WebEngineBrowser::WebEngineBrowser()
    : m_view(new QWebEngineView)
    , m_page(new QuietPage(&m_profile, this))
{
    connect(&m_profile, &QWebEngineProfile::downloadRequested, this,
        [](QWebEngineDownloadRequest* download) { download->cancel(); });
    connect(m_page, &QWebEnginePage::featurePermissionRequested, this,
        [this](const QUrl& origin, QWebEnginePage::Feature feature) {
            m_page->setFeaturePermission(origin, feature, QWebEnginePage::PermissionDeniedByUser);
        });
    QWebEngineSettings& settings = *m_page->settings();
    settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings.setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::NoContextMenu); // The menu would offer saving and new windows.
}

WebEngineBrowser::~WebEngineBrowser()
{
    // The page must go before its profile. The view may have been deleted by its window.
    delete m_page;
}

QWidget* WebEngineBrowser::widget()
{
    return m_view;
}

void WebEngineBrowser::navigate(const QByteArray& url)
{
    m_page->load(QUrl::fromEncoded(url));
}

void WebEngineBrowser::clear()
{
    m_page->triggerAction(QWebEnginePage::Stop);
    m_page->load(QUrl(QStringLiteral("about:blank")));
}

void WebEngineBrowser::onNavigated(std::function<void(const QByteArray& url)> navigated)
{
    // The page's URL changes when a navigation is committed, long before the last picture is loaded.
    connect(m_page, &QWebEnginePage::urlChanged, this, [navigated = std::move(navigated)](const QUrl& url) {
        if (isOfTheWeb(url))
            navigated(url.toEncoded());
    });
}

void WebEngineBrowser::onLinkFollowed(std::function<void()> followed)
{
    connect(m_page, &QuietPage::linkFollowed, this, std::move(followed));
}

Browser* WebEngineBrowserFactory::create()
{
    // Draw pages without the graphics card. Its libraries would have to be set up before the program starts, and users
    // look at a page here only to take its address.
    QtWebEngineQuick::initialize();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --disable-gpu");
    return new WebEngineBrowser;
}
