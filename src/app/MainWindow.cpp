// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"

#include "app/About.h"
#include "app/StatusPanels.h"
#include "app/WindowPlace.h"
#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "base/window/Captions.h"
#include "results/window/FoundsView.h"
#include "session/Session.h"
#include "session/Settings.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

namespace {

/// The one file that is dragged; empty for anything else.
QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(Session& session, const Seams& seams)
    : m_session(session)
    , m_seams(seams)
    , m_libraryTexts(session.language)
    , m_search(session)
    , m_files(m_search, seams)
    , m_searchMessages(session, seams)
    , m_lists(m_search, seams)
    , m_language(session.language, seams.messages)
    , m_menus(*this)
    , m_results(new ResultsArea(session, this))
    , m_status(new StatusPanels(this))
    , m_sideWindows(session, seams, *this)
    , m_rowCommands(m_results->founds(), m_results->list(), session.downloads, seams)
{
    setObjectName(QStringLiteral("main"));
    setAcceptDrops(true);
    setCentralWidget(m_results);
    setStatusBar(m_status);
    const int line = fontMetrics().height();
    resize(72 * line, 44 * line);
    m_results->setFocus();
    m_results->list().setCommands(m_menus.m_edit->actions());
    wireSearch();
    wireSearchMenu();
    wireLists();
    wireEditMenu();
    wireViewMenu();
    wireDownloads();
    wireOtherMenus();
    applyCaptions();
}

MainWindow::~MainWindow() = default;

void MainWindow::wireSearch()
{
    connect(&m_session.cookies, &CookieStore::notStored, this, [this] {
        const QString folder = QDir::toNativeSeparators(m_session.cookies.folder());
        m_seams.messages.tell(errorReport(m_seams.language, "more.cookiesNotStored", folder));
    });
    connect(&m_search, &CurrentSearch::changed, this, &MainWindow::updateStatus);
    connect(&m_search, &CurrentSearch::aboutToDrop, this, [this] { m_rowCommands.finish(); });
    connect(&m_files, &SearchFiles::opened, this, &MainWindow::showOpened);
    connect(&m_sideWindows, &SideWindows::searchConfirmed, this, &MainWindow::startSearch);
    connect(m_results, &ResultsArea::countChanged, &m_statusUpdate, &PacedUpdate::request);
    connect(&m_statusUpdate, &PacedUpdate::due, this, &MainWindow::updateStatus);
}

void MainWindow::wireSearchMenu()
{
    connect(m_menus.m_searchNew, &QAction::triggered, &m_sideWindows, &SideWindows::showNewSearch);
    connect(m_menus.m_searchContinue, &QAction::triggered, &m_search, &CurrentSearch::continueSearch);
    connect(m_menus.m_searchStop, &QAction::triggered, &m_search, &CurrentSearch::stop);
    connect(m_menus.m_searchOpen, &QAction::triggered, &m_files, &SearchFiles::askToOpen);
    connect(m_menus.m_searchSave, &QAction::triggered, &m_files, &SearchFiles::save);
    connect(m_menus.m_searchSaveAs, &QAction::triggered, &m_files, &SearchFiles::askToSave);
    connect(m_menus.m_quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::wireLists()
{
    const auto import = [this](QAction* action, listFormat::Format format) {
        connect(action, &QAction::triggered, this, [this, format] { m_lists.askToImport(format); });
    };
    import(m_menus.m_importUrlList, listFormat::Format::Urls);
    import(m_menus.m_importCsv, listFormat::Format::Csv);
    const auto exports = [this](QAction* action, listFormat::Format format) {
        connect(action, &QAction::triggered, this, [this, format] {
            m_lists.askToExport(format,
                { [this] { return m_rowCommands.allItems(); }, [this] { return m_rowCommands.selectedItems(); },
                    m_rowCommands.selectedCount() });
        });
    };
    exports(m_menus.m_exportAsUrlList, listFormat::Format::Urls);
    exports(m_menus.m_exportAsCsv, listFormat::Format::Csv);
}

void MainWindow::wireEditMenu()
{
    const auto command = [this](QAction* action, auto run) {
        connect(action, &QAction::triggered, this, [this, run] { run(m_rowCommands); });
    };
    command(m_menus.m_selectedOpen, [](RowCommands& rows) { rows.open(false); });
    command(m_menus.m_markedOpen, [](RowCommands& rows) { rows.open(true); });
    connect(&m_results->list(), &FoundsView::doubleClicked, this, [this](int row) { m_rowCommands.openRow(row); });
    const auto openBy = [this](QAction* action, bool marked) {
        connect(action, &QAction::triggered, this,
            [this, marked] { m_sideWindows.showOpenBy([this, marked] { return m_rowCommands.urls(marked); }); });
    };
    openBy(m_menus.m_selectedOpenBy, false);
    openBy(m_menus.m_markedOpenBy, true);
    command(m_menus.m_selectedToClipboard, [](RowCommands& rows) { rows.copy(false); });
    command(m_menus.m_markedToClipboard, [](RowCommands& rows) { rows.copy(true); });
    command(m_menus.m_selectedMark, [](const RowCommands& rows) { rows.setMarked(true); });
    command(m_menus.m_selectedDemark, [](const RowCommands& rows) { rows.setMarked(false); });
    command(m_menus.m_selectAll, [](const RowCommands& rows) { rows.selectAll(); });
    command(m_menus.m_selectedInvert, [](const RowCommands& rows) { rows.invertSelection(); });
    command(m_menus.m_markedSelect, [](const RowCommands& rows) { rows.selectMarked(); });
}

void MainWindow::wireViewMenu()
{
    connect(m_menus.m_showFilter, &QAction::toggled, m_results, &ResultsArea::showFilter);
    connect(m_results, &ResultsArea::filterCloseClicked, m_menus.m_showFilter, &QAction::toggle);
    connect(m_status, &StatusPanels::filteredClicked, this, [this] { m_menus.m_showFilter->setChecked(true); });
    connect(m_menus.m_showTree, &QAction::toggled, m_results, &ResultsArea::showTree);
    connect(m_menus.listModes, &QActionGroup::triggered, this,
        [this](const QAction* mode) { m_results->list().setMode(static_cast<FoundsMode>(mode->data().toInt())); });
    connect(m_menus.units, &QActionGroup::triggered, this, [this](const QAction* unit) { chooseUnit(*unit); });
    for (QAction* const unit : m_menus.units->actions())
        unit->setChecked(unit->data().toLongLong() == m_session.filter.sizeUnit);
    chooseUnit(*m_menus.units->checkedAction());
    connect(m_menus.languages, &QActionGroup::triggered, this,
        [this](const QAction* language) { m_language.selectBuiltIn(language->data().toInt()); });
    connect(m_menus.m_externLang, &QAction::triggered, this, &MainWindow::askForLanguageFile);
    connect(&m_session.language, &LanguageTable::changed, this, &MainWindow::applyCaptions);
}

void MainWindow::wireDownloads()
{
    const auto download = [this](QAction* action, bool marked) {
        connect(action, &QAction::triggered, this, [this, marked] {
            m_rowCommands.download(marked);
            m_sideWindows.showDownloadsIfWanted();
        });
    };
    download(m_menus.m_selectedDownload, false);
    download(m_menus.m_markedDownload, true);
    connect(m_menus.m_addNumberedDL, &QAction::triggered, &m_sideWindows, &SideWindows::showNumbered);
    connect(m_menus.m_showDlm, &QAction::triggered, &m_sideWindows, &SideWindows::showDownloads);
}

void MainWindow::wireOtherMenus()
{
    connect(m_menus.m_requests, &QAction::triggered, &m_sideWindows, &SideWindows::showRequests);
    connect(m_menus.m_resolve3xx, &QAction::toggled, this, [this](bool on) { m_session.setFollowRelocation(on); });
    connect(m_menus.m_filterAutoApply, &QAction::toggled, this, [this](bool on) {
        m_session.windows.filterAutoApply = on;
        if (on)
            m_results->applyWaitingFilter();
    });
    connect(m_menus.m_autoOpenDLM, &QAction::toggled, this, [this](bool on) { m_session.windows.autoOpenDLM = on; });
    connect(m_menus.m_goHelpfile, &QAction::triggered, this, &MainWindow::showHelp);
    connect(m_menus.m_about, &QAction::triggered, this, &MainWindow::showAbout);
    const auto page = [this](QAction* action, const QUrl& url) {
        action->setEnabled(!url.isEmpty());
        connect(action, &QAction::triggered, this, [this, url] { m_seams.shell.openUrl(url); });
    };
    page(m_menus.m_goWebsite, about::website());
    page(m_menus.m_goUpdates, about::updates());
}

void MainWindow::applyCaptions()
{
    captions::apply(*this, m_session.language);
    for (QAction* const action : m_menus.languages->actions())
        action->setChecked(action->data().toInt() == m_language.index());
    m_results->list().setViewsName(m_seams.text("more.results"));
    updateStatus();
}

void MainWindow::startSearch()
{
    m_search.start();
    m_results->expandHostOf(m_session.searchOptions.startUrl);
}

void MainWindow::open(const QString& fileName)
{
    m_files.open(fileName);
}

void MainWindow::showOpened(const MimeTypeList& mimeTypes)
{
    m_results->meet(mimeTypes);
    m_results->expandHostOf(m_session.searchOptions.startUrl);
    m_results->rebuild();
    m_sideWindows.showOptions();
}

void MainWindow::askForLanguageFile()
{
    const FileDialogs::Request request { LanguageTable::plain(m_seams.text("main.m_externLang")),
        { { m_seams.text("lang.filetype_lng"), QStringLiteral("*.lng") } }, {}, {} };
    m_seams.fileDialogs.open(request, [this](const QString& path) { m_language.load(path); });
}

void MainWindow::chooseUnit(const QAction& unit)
{
    m_results->setSizeUnit(unit.data().toLongLong(), unit.text());
}

void MainWindow::showHelp()
{
    if (!m_seams.shell.openFile(about::helpFile(m_seams.text("lang.helpfile"))))
        m_seams.messages.tell({ Messages::Sign::Warning, m_seams.text("lang.errTitle"), m_seams.text("lang.errHelp") });
}

void MainWindow::showAbout()
{
    m_seams.messages.tell({ Messages::Sign::Information, LanguageTable::plain(m_seams.text("main.m_about")),
        about::text(m_seams.language) });
}

void MainWindow::updateStatus()
{
    const SearchStatus status = m_search.status();
    m_status->show(status, m_results->shownCount(), m_session.filter.isActive(), m_session.language);
    m_results->showStatus(status);
    m_menus.m_searchNew->setEnabled(status.canStart());
    m_menus.m_searchContinue->setEnabled(status.canContinue());
    m_menus.m_searchStop->setEnabled(status.canStop());
    for (QAction* const action : { m_menus.m_searchOpen, m_menus.m_importUrlList, m_menus.m_importCsv })
        action->setEnabled(status.canStart());
    m_menus.m_requests->setEnabled(!status.opening); // The file may replace the preferences.
    updateTitle();
}

void MainWindow::updateTitle()
{
    const QString program = QApplication::applicationName();
    const QString file = allgemein::withVisibleControls(QFileInfo(m_search.fileName()).fileName());
    setWindowTitle(file.isEmpty() ? program : file + QStringLiteral(" – ") + program);
}

void MainWindow::begin(const settings::LoadResult& loaded, const QString& fileName)
{
    restoreState();
    show();
    // Boxes need a window over which they can be shown.
    resumeLanguage();
    if (const auto box = settings::report(loaded, m_session.language))
        m_seams.messages.tell(*box);
    if (!fileName.isEmpty())
        open(fileName);
}

void MainWindow::restoreState()
{
    const WindowSettings& windows = m_session.windows;
    windowPlace::restore(*this, { windows.mainWidth, windows.mainHeight }, m_session.views.mainPlace);
    if (windows.mainMaximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    m_results->restoreState();
    m_menus.m_showFilter->setChecked(windows.filter);
    m_menus.m_showTree->setChecked(windows.tree);
    m_menus.m_filterAutoApply->setChecked(windows.filterAutoApply);
    m_menus.m_autoOpenDLM->setChecked(windows.autoOpenDLM);
    m_menus.m_resolve3xx->setChecked(m_session.downloads.settings().followRelocation);
}

void MainWindow::resumeLanguage()
{
    if (m_session.windows.langFile.isEmpty())
        return;
    m_language.resume(m_session.windows.langFile);
    applyCaptions(); // The file stays chosen in the menu even if it could not be read.
}

void MainWindow::rememberState()
{
    WindowSettings& windows = m_session.windows;
    const QSize size = windowPlace::twipsOf(*this);
    windows.mainWidth = size.width();
    windows.mainHeight = size.height();
    windows.mainMaximized = isMaximized();
    windows.langFile = m_language.fileName();
    m_session.views.mainPlace = windowPlace::placeOf(*this);
    m_results->rememberState();
    m_sideWindows.rememberState();
}

/// Closes the window after the user has read that the settings cannot be saved.
void MainWindow::saveSettings()
{
    rememberState();
    const auto failure = settings::saveSettings(m_session);
    m_isSettled = !failure;
    if (!failure)
        return;
    m_seams.messages.tell(errorReport(m_session.language, "lang.errWhileSavingIni", *failure), [this] {
        m_isSettled = true;
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_rowCommands.finish();
    // A failure is told first. The window stays open, so that the user can save elsewhere or close it again.
    const bool areSaved = m_files.finish();
    const bool isWritten = m_lists.finish() && areSaved;
    if (isWritten && !m_isSettled)
        saveSettings();
    if (!isWritten || !m_isSettled) {
        event->ignore();
        return;
    }
    m_session.search.stopSearch();
    event->accept();
    QApplication::closeAllWindows();
}

void MainWindow::saveBeforeEnd()
{
    m_rowCommands.finish();
    (void)m_files.finish();
    (void)m_lists.finish();
    rememberState();
    (void)settings::saveSettings(m_session);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_search.status().canStart() && !draggedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    open(draggedFile(event->mimeData()));
    event->acceptProposedAction();
}
