// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/DLManager.h"

#include "base/Captions.h"
#include "base/ColumnsTable.h"
#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "downloads/ProgressDelegate.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include <cmath>

namespace {

/// In ninths of the height of a line of text.
const QList<int> columnWidths { 110, 130, 55, 55, 70, 150, 200 };

/// Summaries are for people: twice a second is enough.
constexpr int summaryInterval = 500;

/// The http URLs that are dragged.
QList<QUrl> draggedUrls(const QMimeData* data)
{
    QList<QUrl> urls = data->urls();
    urls.removeIf([](const QUrl& url) { return url.scheme() != QLatin1String("http"); });
    return urls;
}

} // namespace

DLManager::DLManager(
    DownloadQueue& queue, const LanguageTable& language, Messages& messages, FileDialogs& fileDialogs, Shell& shell)
    : m_queue(queue)
    , m_language(language)
    , m_messages(messages)
    , m_fileDialogs(fileDialogs)
    , m_shell(shell)
    , m_model(queue, language, nullptr)
    , m_list(new ColumnsTable(m_model, columnWidths, language, this))
    , m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("DLManager"));
    setAcceptDrops(true);
    m_list->setObjectName(QStringLiteral("l_downloads"));
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_list->setItemDelegateForColumn(DownloadModel::Progress, new ProgressDelegate(m_list));
    connect(m_list, &ColumnsTable::doubleClicked, this, &DLManager::openSelected);
    setCentralWidget(m_list);
    m_summary->setObjectName(QStringLiteral("summary"));
    statusBar()->addWidget(m_summary, 1);
    resize(60 * fontMetrics().height(), 24 * fontMetrics().height());

    makeEditMenu();
    makeOptionsMenu();
    showSettings();
    m_summaryUpdate.setSingleShot(true);
    m_summaryUpdate.setInterval(summaryInterval);
    connect(&m_summaryUpdate, &QTimer::timeout, this, &DLManager::showSummary);
    const auto soon = [this] {
        if (!m_summaryUpdate.isActive())
            m_summaryUpdate.start();
    };
    connect(&queue, &DownloadQueue::changed, this, soon);
    connect(&queue, &DownloadQueue::removed, this, soon);
    connect(&queue, &DownloadQueue::wasReset, this, soon);
    connect(&queue, &DownloadQueue::idle, this, &DLManager::showSummary);
    connect(&language, &LanguageTable::changed, this, &DLManager::applyCaptions);
    applyCaptions();
}

QAction* DLManager::addEntry(QMenu* menu, const char* name, const QKeySequence& key)
{
    QAction* const action = menu->addAction(QString());
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(key);
    return action;
}

void DLManager::makeEditMenu()
{
    auto* const menu = new QMenu(menuBar());
    menu->setObjectName(QStringLiteral("m_edit"));
    menuBar()->addMenu(menu);

    QAction* const active = addEntry(menu, "m_DLactive");
    active->setCheckable(true);
    active->setChecked(m_queue.settings().active);
    connect(active, &QAction::triggered, this, [this, active] {
        active->setChecked(m_queue.settings().active);
        m_messages.tell({ Messages::Sign::Information, QStringLiteral("downloading deactivate function"),
            QStringLiteral("coming soon") });
    });
    menu->addSeparator();
    connect(addEntry(menu, "m_startSel", Qt::Key_F5), &QAction::triggered, this,
        [this] { m_queue.queue(m_list->selectedRows()); });
    connect(addEntry(menu, "m_stopSel", Qt::SHIFT | Qt::Key_F5), &QAction::triggered, this,
        [this] { m_queue.stop(m_list->selectedRows()); });
    connect(addEntry(menu, "m_RemoveSel", QKeySequence::Delete), &QAction::triggered, this, &DLManager::removeSelected);
    menu->addSeparator();
    QAction* const open = addEntry(menu, "m_openCompletedSelected");
    open->setShortcuts({ Qt::Key_Return, Qt::Key_Enter });
    connect(open, &QAction::triggered, this, &DLManager::openSelected);
    connect(addEntry(menu, "m_openTarget"), &QAction::triggered, this, &DLManager::openTargetFolder);
    menu->addSeparator();
    QAction* const all = addEntry(menu, "m_selectAll", QKeySequence::SelectAll);
    connect(all, &QAction::triggered, m_list, &QAbstractItemView::selectAll);
    m_list->addActions(menu->actions());
}

void DLManager::makeOptionsMenu()
{
    auto* const menu = new QMenu(menuBar());
    menu->setObjectName(QStringLiteral("m_options"));
    menuBar()->addMenu(menu);

    DownloadSettings& settings = m_queue.settings();
    connect(addEntry(menu, "m_targetSel"), &QAction::triggered, this, &DLManager::askForTarget);
    addSwitch(menu, "c_DirByUrl", settings.naming.dirByUrl);
    addSwitch(menu, "c_RenameForMS", settings.naming.renameForMS);
    addSwitch(menu, "c_extByMIME", settings.naming.extByMIME);
    addSwitch(menu, "m_overwriteExistingFiles", settings.overwrite);
    menu->addSeparator();
    connect(addEntry(menu, "m_maxDL"), &QAction::triggered, this, &DLManager::askForMaximum);
    addSwitch(menu, "c_startImm", settings.startImmediately);
    addSwitch(menu, "m_removeFinished", settings.removeFinished);
    menu->addSeparator();
    addSwitch(menu, "c_usePercent", settings.usePercent);
    addSwitch(menu, "m_relHTMLref", settings.relHTMLref);
}

void DLManager::addSwitch(QMenu* menu, const char* name, bool& setting)
{
    QAction* const action = addEntry(menu, name);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this, &setting](bool on) {
        setting = on;
        m_model.refresh();
    });
    m_switches.append({ action, &setting });
}

void DLManager::showSettings()
{
    for (const auto& [action, setting] : m_switches)
        action->setChecked(*setting);
}

void DLManager::applyCaptions()
{
    captions::apply(*this, m_language);
    m_list->setAccessibleName(windowTitle());
    m_list->setEmptyText(text("more.noDownloads"));
    showSummary();
}

void DLManager::showSummary()
{
    qint64 speed = 0;
    qint64 remaining = 0;
    for (const DownloadEntry* const entry : m_queue.running()) {
        speed += entry->speed.value_or(0);
        remaining += qMax(entry->size - entry->received.value_or(0), qint64 { 0 });
    }
    const QLocale locale = LanguageTable::localeOf(m_language.builtIn());
    m_summary->setText(text("more.summary")
                           .arg(m_queue.runningCount())
                           .arg(m_queue.waitingCount())
                           .arg(locale.formattedDataSize(speed), locale.formattedDataSize(remaining)));
}

void DLManager::removeSelected()
{
    if (m_list->selectedRows().empty())
        return;
    m_messages.ask(
        { Messages::Sign::Question, text("lang.question"), text("lang.removeDLQuestion") }, [this](bool yes) {
            // Rows may have come and gone while the box was there; what is selected now is what the user sees selected.
            if (yes)
                m_queue.remove(m_list->selectedRows());
        });
}

void DLManager::openSelected()
{
    // Gathered first: the desktop may let events pass, and entries go, while it opens a file.
    QStringList files;
    for (const RowRun& run : m_list->selectedRows()) {
        for (int row = run.first; row <= run.last; ++row) {
            const DownloadEntry& entry = m_queue.entryAt(row);
            if (entry.tag == DownloadTag::Complete || entry.tag == DownloadTag::Warning)
                files += entry.target;
        }
    }
    for (const QString& file : files)
        m_shell.openFile(file);
}

void DLManager::openTargetFolder()
{
    const RowRuns rows = m_list->selectedRows();
    const QString target = rows.empty() ? QString() : m_queue.entryAt(rows.front().first).target;
    const QString folder = target.isEmpty() ? m_queue.settings().target : QFileInfo(target).path();
    if (!m_shell.openFile(folder))
        m_messages.tell(errorReport(m_language, "lang.errWhileOpening", folder));
}

void DLManager::askForMaximum()
{
    m_messages.input(LanguageTable::plain(text("DLManager.m_maxDL")), QStringLiteral("1-10:"),
        QString::number(m_queue.settings().maxDL), [this](const QString& typed) { takeMaximum(typed); });
}

void DLManager::takeMaximum(const QString& typed)
{
    if (typed.isEmpty())
        return;
    const double number = typed.toDouble(); // 0 for what is no number
    if (number < 1 || number > DownloadSettings::mostSlots)
        askForMaximum();
    else
        m_queue.settings().maxDL = static_cast<int>(std::nearbyint(number));
}

void DLManager::askForTarget()
{
    m_fileDialogs.folder(text("lang.DL_chDownloadDir"), m_queue.settings().target, [this](const QString& path) {
        m_queue.settings().target = allgemein::withTrailingSeparator(QDir::toNativeSeparators(path));
    });
}

void DLManager::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedUrls(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void DLManager::dropEvent(QDropEvent* event)
{
    for (const QUrl& url : draggedUrls(event->mimeData()))
        m_queue.addDL(url.toEncoded(), -1, {});
    event->acceptProposedAction();
}

QString DLManager::text(const char* key) const
{
    return m_language.text(key);
}
