// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/browser/WebEngineBrowser.h"

#include <QQuickWindow>
#include <QWebEngineDownloadRequest>
#include <QtWebEngineQuick>
#include <QWebEngineSettings>

#include <utility>

namespace {

/// What can be on the web; a page's own pieces have other protocols.
bool isOfTheWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// A window that a page wants opened: as soon as it is told where to go, the page goes there itself.
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
        if (isOfTheWeb(url))
            m_page->load(url);
        deleteLater();
        return false;
    }

private:
    QuietPage* m_page;
};

} // namespace

bool QuietPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame)
{
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
    m_view->setContextMenuPolicy(Qt::NoContextMenu); // it would offer to save, and new windows
}

WebEngineBrowser::~WebEngineBrowser()
{
    // The page goes before its profile, and the view may be gone already.
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
    const auto tell = [this, navigated = std::move(navigated)] {
        if (isOfTheWeb(m_page->url()))
            navigated(m_page->url().toEncoded());
    };
    connect(m_page, &QWebEnginePage::loadFinished, this, [tell](bool shown) {
        if (shown)
            tell();
    });
    // Places within a page, and pages that a script makes of it, are not loaded.
    connect(m_page, &QWebEnginePage::urlChanged, this, [this, tell] {
        if (!m_page->isLoading())
            tell();
    });
}

Browser* WebEngineBrowserFactory::create()
{
    // Pages are drawn without the graphics card: they are only looked at for their address, and everything that it
    // would need must be there when the program starts.
    QtWebEngineQuick::initialize();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --disable-gpu");
    return new WebEngineBrowser;
}
