// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/window/DLManager.h"

#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/folders.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/ColumnsTable.h"
#include "base/window/ElidedLabel.h"
#include "downloads/DownloadQueue.h"
#include "downloads/window/ProgressDelegate.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include <cmath>

namespace {

/// In ninths of the height of a text line.
const QList<int> columnWidths { 110, 130, 55, 55, 70, 150, 200 };

constexpr int summaryInterval = 500; ///< between two updates of the summary, in milliseconds

/// The http URLs of a drag. Other URLs could not be downloaded.
QList<QUrl> draggedUrls(const QMimeData* data)
{
    QList<QUrl> urls = data->urls();
    urls.removeIf([](const QUrl& url) { return url.scheme() != QLatin1String("http"); });
    return urls;
}

} // namespace

DLManager::DLManager(DownloadQueue& queue, const Seams& seams)
    : m_queue(queue)
    , m_seams(seams)
    , m_model(queue, seams.language, nullptr)
    , m_list(new ColumnsTable(m_model, columnWidths, seams.language, this))
    , m_summary(new ElidedLabel(this))
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
    connect(&seams.language, &LanguageTable::changed, this, &DLManager::applyCaptions);
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
        m_seams.messages.tell({ Messages::Sign::Information, QStringLiteral("downloading deactivate function"),
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
    QAction* const target = addEntry(menu, "m_targetSel");
    connect(target, &QAction::triggered, this, &DLManager::askForTarget);
    addSwitch(menu, "c_DirByUrl", settings.naming.dirByUrl);
    addSwitch(menu, "c_RenameForMS", settings.naming.renameForMs);
    addSwitch(menu, "c_extByMIME", settings.naming.extByMime);
    addSwitch(menu, "m_overwriteExistingFiles", settings.overwrite);
    menu->addSeparator();
    QAction* const maximum = addEntry(menu, "m_maxDL");
    connect(maximum, &QAction::triggered, this, &DLManager::askForMaximum);
    addSwitch(menu, "c_startImm", settings.startImmediately);
    addSwitch(menu, "m_removeFinished", settings.removeFinished);
    menu->addSeparator();
    addSwitch(menu, "c_usePercent", settings.usePercent);
    addSwitch(menu, "m_relHTMLref", settings.relHTMLref);

    // The pop-up menu of the list has these two as well, besides the commands for the rows.
    auto* const separator = new QAction(m_list);
    separator->setSeparator(true);
    m_list->addActions({ separator, target, maximum });
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
    captions::apply(*this, m_seams.language);
    m_list->setAccessibleName(windowTitle());
    m_list->setEmptyText(m_seams.text("more.noDownloads"));
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
    const QLocale locale = LanguageTable::localeOf(m_seams.language.builtIn());
    m_summary->setText(m_seams.text("more.summary")
                           .arg(m_queue.runningCount())
                           .arg(m_queue.waitingCount())
                           .arg(locale.formattedDataSize(speed), locale.formattedDataSize(remaining)));
    m_summary->setToolTip(m_summary->text());
}

void DLManager::removeSelected()
{
    if (m_list->selectedRows().empty())
        return;
    // Rows may come and go while the box is shown, so the selection is read afterwards: the user sees that one.
    m_seams.messages.confirm(
        { Messages::Sign::Question, m_seams.text("lang.question"), m_seams.text("lang.removeDLQuestion") },
        [this] { m_queue.remove(m_list->selectedRows()); });
}

void DLManager::openSelected()
{
    // Collect the files first: while the desktop opens one it may process events, which may remove entries.
    QStringList files;
    for (const RowRun& run : m_list->selectedRows()) {
        for (int row = run.first; row <= run.last; ++row) {
            const DownloadEntry& entry = m_queue.entryAt(row);
            if (entry.tag == DownloadTag::Complete || entry.tag == DownloadTag::Warning)
                files += entry.target;
        }
    }
    files.removeIf([this](const QString& file) { return m_seams.shell.openFile(file); });
    reportUnopened(files);
}

void DLManager::reportUnopened(const QStringList& files)
{
    constexpr qsizetype mostNamed = 10;
    if (files.isEmpty())
        return;
    QStringList lines = files.mid(0, mostNamed);
    if (files.size() > mostNamed)
        lines += m_seams.text("more.andMore").arg(files.size() - mostNamed);
    m_seams.messages.tell(errorReport(m_seams.language, "lang.errWhileOpening", lines.join(u'\n')));
}

void DLManager::openTargetFolder()
{
    const RowRuns rows = m_list->selectedRows();
    const QString target = rows.empty() ? QString() : m_queue.entryAt(rows.front().first).target;
    const QString folder = target.isEmpty() ? m_queue.settings().target : QFileInfo(target).path();
    if (!m_seams.shell.openFile(folder))
        m_seams.messages.tell(errorReport(m_seams.language, "lang.errWhileOpening", folder));
}

void DLManager::askForMaximum()
{
    m_seams.messages.input(LanguageTable::plain(m_seams.text("DLManager.m_maxDL")), QStringLiteral("1-10:"),
        QString::number(m_queue.settings().maxDL), [this](const QString& typed) { takeMaximum(typed); });
}

void DLManager::takeMaximum(const QString& typed)
{
    if (typed.isEmpty())
        return;
    const double number = typed.toDouble(); // 0 if it is no number
    // "nan" reads as a number that is neither below nor above the bounds.
    const bool isInRange = number >= 1 && number <= DownloadSettings::mostSlots;
    if (!isInRange)
        askForMaximum();
    else
        m_queue.settings().maxDL = static_cast<int>(std::nearbyint(number));
}

void DLManager::askForTarget()
{
    m_seams.fileDialogs.folder(
        m_seams.text("lang.DL_chDownloadDir"), m_queue.settings().target, [this](const QString& path) {
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
