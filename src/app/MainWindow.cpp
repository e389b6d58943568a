// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"

#include "app/About.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "app/StatusPanels.h"
#include "app/WindowPlace.h"
#include "base/Captions.h"
#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "results/FilterPane.h"
#include "results/FoundsView.h"
#include "results/HostTreeView.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

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
    , m_search(session)
    , m_files(m_search, session.language, seams)
    , m_lists(m_search, session.language, seams)
    , m_language(session.language, seams.messages)
    , m_menus(*this)
    , m_founds(session.foundItems, session.filter, session.language, nullptr)
    , m_hosts(session.foundItems, nullptr)
    , m_baum(new HostTreeView(m_hosts, this))
    , m_list(new FoundsView(m_founds, session.language, this))
    , m_filter(new FilterPane(session.filter, this))
    , m_status(new StatusPanels(this))
    , m_splitter(new QSplitter(this))
    , m_sideWindows(session, seams, *this)
    , m_rowCommands(m_founds, *m_list, session.downloads, session.language, seams.messages, seams.shell)
{
    setObjectName(QStringLiteral("main"));
    setAcceptDrops(true);
    layOut();
    wireSearch();
    wireViews();
    wireSearchMenu();
    wireLists();
    wireEditMenu();
    wireViewMenu();
    wireDownloads();
    wireOtherMenus();
    applyCaptions();
}

MainWindow::~MainWindow()
{
    // What is still running must not tell of itself to what is going.
    m_session.search.disconnect(this);
}

void MainWindow::layOut()
{
    m_baum->setObjectName(QStringLiteral("baum"));
    m_list->setObjectName(QStringLiteral("l_founds"));
    m_splitter->addWidget(m_baum);
    m_splitter->addWidget(m_list);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    const int line = fontMetrics().height();
    m_splitter->setSizes({ 16 * line, 46 * line });

    auto* const area = new QWidget(this);
    auto* const rows = new QVBoxLayout(area);
    rows->addWidget(m_splitter, 1);
    rows->addWidget(m_filter);
    setCentralWidget(area);
    setStatusBar(m_status);
    resize(72 * line, 44 * line);
    m_list->setFocus();
}

void MainWindow::wireSearch()
{
    SearchRun& run = m_session.search;
    connect(&run, &SearchRun::recorded, this, [this](FundKnoten* knoten) {
        m_founds.offer(knoten);
        m_hosts.add(knoten->inhalt);
        m_filter->mimeTypes().meet(knoten->inhalt.mimeTyp);
        m_statusUpdate.request();
    });
    connect(&run, &SearchRun::refreshed, this, [this](FundKnoten* knoten) {
        m_founds.refresh(knoten);
        m_filter->mimeTypes().meet(knoten->inhalt.mimeTyp);
    });
    connect(&run, &SearchRun::reported, &m_founds, &FoundModel::report);
    connect(&run, &SearchRun::removing, this, [this](FundKnoten* knoten) {
        m_founds.removing(knoten);
        m_hosts.removing(knoten);
        m_statusUpdate.request();
    });
    connect(&run, &SearchRun::cleared, this, &MainWindow::forgetViews);
    connect(&run, &SearchRun::finished, this, &MainWindow::rebuildViews);
    connect(&m_search, &CurrentSearch::changed, this, &MainWindow::updateStatus);
    connect(&m_search, &CurrentSearch::aboutToDrop, this, [this] { m_rowCommands.finish(); });
    connect(&m_files, &SearchFiles::opened, this, &MainWindow::showOpened);
    connect(&m_sideWindows, &SideWindows::searchConfirmed, this, &MainWindow::startSearch);
}

void MainWindow::wireViews()
{
    connect(&m_statusUpdate, &PacedUpdate::due, this, &MainWindow::updateStatus);
    connect(&m_founds, &FoundModel::countChanged, this, [this] { m_statusUpdate.request(); });
    connect(m_baum, &HostTreeView::branchChosen, this, [this](const SubUrl& branch) {
        // The root stands for everything, whatever its protocol.
        m_session.filter.branch = branch.level > 0 ? std::optional(branch) : std::nullopt;
        filterChanged();
    });
    connect(m_filter, &FilterPane::filterChanged, this, &MainWindow::filterChanged);
    connect(m_filter, &FilterPane::applyClicked, &m_founds, &FoundModel::rebuild);
    connect(m_filter, &FilterPane::closeClicked, this, [this] { m_menus.m_showFilter->setChecked(false); });
    m_list->setCommands(m_menus.m_edit->actions());
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
    connect(m_list, &FoundsView::doubleClicked, m_menus.m_selectedOpen, &QAction::trigger);
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
    connect(m_menus.m_showFilter, &QAction::toggled, this, [this](bool on) {
        m_session.windows.filter = on;
        m_filter->setVisible(on);
    });
    connect(m_menus.m_showTree, &QAction::toggled, this, &MainWindow::showTree);
    connect(m_menus.listModes, &QActionGroup::triggered, this,
        [this](const QAction* mode) { m_list->setMode(static_cast<FoundsMode>(mode->data().toInt())); });
    connect(m_menus.units, &QActionGroup::triggered, this, [this](const QAction* unit) { chooseUnit(*unit); });
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
    connect(m_menus.m_filterAutoApply, &QAction::toggled, this,
        [this](bool on) { m_session.windows.filterAutoApply = on; });
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
    m_list->setViewsName(text("more.results"));
    updateStatus();
}

void MainWindow::startSearch()
{
    m_session.filter.branch.reset();
    m_search.start();
    m_baum->expandHostOf(m_session.searchOptions.startUrl);
}

void MainWindow::open(const QString& fileName)
{
    m_files.open(fileName);
}

void MainWindow::showOpened(const MimeListe& mimeTypes)
{
    m_session.filter.branch.reset();
    for (const MimeListe::Entry& entry : mimeTypes.entries())
        m_filter->mimeTypes().meet(entry.type);
    m_sideWindows.showOptions();
    m_baum->expandHostOf(m_session.searchOptions.startUrl);
    rebuildViews();
}

void MainWindow::askForLanguageFile()
{
    const FileDialogs::Request request { LanguageTable::plain(text("main.m_externLang")),
        { { text("lang.filetype_lng"), QStringLiteral("*.lng") } }, {}, {} };
    m_seams.fileDialogs.open(request, [this](const QString& path) { m_language.load(path); });
}

void MainWindow::filterChanged()
{
    if (m_session.windows.filterAutoApply)
        m_founds.rebuild();
}

void MainWindow::rebuildViews()
{
    m_founds.rebuild();
    m_hosts.rebuild();
}

void MainWindow::forgetViews()
{
    m_founds.clear();
    m_hosts.clear();
}

void MainWindow::chooseUnit(const QAction& unit)
{
    m_filter->setSizeUnit(unit.data().toLongLong(), unit.text());
    filterChanged();
}

void MainWindow::showHelp()
{
    if (!m_seams.shell.openFile(about::helpFile(text("lang.helpfile"))))
        m_seams.messages.tell({ Messages::Sign::Warning, text("lang.errTitle"), text("lang.errHelp") });
}

void MainWindow::showAbout()
{
    m_seams.messages.tell(
        { Messages::Sign::Information, LanguageTable::plain(text("main.m_about")), about::text(m_session.language) });
}

void MainWindow::updateStatus()
{
    const SearchStatus status = m_search.status();
    m_status->show(status, m_founds.rowCount(), m_session.language);
    m_filter->setShownCount(m_founds.rowCount());
    m_list->setEmptyText(emptyText(status));
    m_menus.m_searchNew->setEnabled(status.canStart());
    m_menus.m_searchContinue->setEnabled(status.canContinue());
    m_menus.m_searchStop->setEnabled(status.canStop());
    for (QAction* const action : { m_menus.m_searchOpen, m_menus.m_importUrlList, m_menus.m_importCsv })
        action->setEnabled(status.canStart());
    m_menus.m_requests->setEnabled(!status.opening); // the file may bring others
    updateTitle();
}

void MainWindow::updateTitle()
{
    const QString program = QApplication::applicationName();
    const QString file = QFileInfo(m_search.fileName()).fileName();
    setWindowTitle(file.isEmpty() ? program : file + QStringLiteral(" – ") + program);
}

QString MainWindow::emptyText(const SearchStatus& status) const
{
    if (status.state == SearchState::None)
        return text("lang.search_noSearch") + u'\n' + text("more.hintNew");
    return status.found > 0 && !m_founds.isRebuilding() ? text("more.allFiltered") : QString();
}

QString MainWindow::text(const char* key) const
{
    return m_session.language.text(key);
}

void MainWindow::restoreState()
{
    const WindowSettings& windows = m_session.windows;
    windowPlace::restore(*this, { windows.mainWidth, windows.mainHeight }, m_session.views.mainPlace);
    if (windows.mainMaximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    m_list->restoreColumns(m_session.views.columns);
    if (windows.treeX > 0)
        m_splitter->setSizes({ windowPlace::pixels(windows.treeX), width() - windowPlace::pixels(windows.treeX) });

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
    applyCaptions(); // also where nothing of it could be read
}

void MainWindow::rememberState()
{
    WindowSettings& windows = m_session.windows;
    const QSize size = windowPlace::twipsOf(*this);
    windows.mainWidth = size.width();
    windows.mainHeight = size.height();
    windows.mainMaximized = isMaximized();
    if (windows.tree)
        windows.treeX = windowPlace::twips(m_splitter->sizes().constFirst());
    windows.langFile = m_language.fileName();
    m_session.views.mainPlace = windowPlace::placeOf(*this);
    m_session.views.columns = m_list->columnState();
    m_sideWindows.rememberState();
}

void MainWindow::showTree(bool on)
{
    // A splitter forgets the place of what is hidden.
    if (!on && m_baum->isVisible())
        m_session.windows.treeX = windowPlace::twips(m_splitter->sizes().constFirst());
    m_session.windows.tree = on;
    m_baum->setVisible(on);
}

/// When they cannot be saved, the window closes once the user has read that.
void MainWindow::saveSettings()
{
    rememberState();
    const auto failure = Settings::saveSettings(m_session);
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
    // What could not be written is told of first; then the user may close the window again.
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
