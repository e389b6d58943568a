// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainMenus.h"

#include "base/lang.h"
#include "results/ResultFilter.h"
#include "results/window/FoundsView.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>

namespace {

QMenu* addMenu(QWidget* to, const QString& name)
{
    auto* const menu = new QMenu(to);
    menu->setObjectName(name);
    to->addAction(menu->menuAction());
    return menu;
}

QAction* addEntry(QMenu* menu, const QString& name, const QKeySequence& key = {})
{
    QAction* const action = menu->addAction(QString());
    action->setObjectName(name);
    action->setShortcut(key);
    return action;
}

QAction* addSwitch(QMenu* menu, const QString& name, bool on, const QKeySequence& key = {})
{
    QAction* const action = addEntry(menu, name, key);
    action->setCheckable(true);
    action->setChecked(on);
    return action;
}

struct Choice {
    QVariant data;
    QString caption; ///< for names that are the same in every language
    QKeySequence key;
};

/// Entries of which one is chosen. Their object names are `name` with their index in parentheses.
QActionGroup* addChoices(QMenu* menu, const QString& name, const QList<Choice>& choices, qsizetype chosen)
{
    auto* const group = new QActionGroup(menu);
    for (qsizetype index = 0; index < choices.size(); ++index) {
        const Choice& choice = choices[index];
        const QString indexed = name + u'(' + QString::number(index) + u')';
        QAction* const action = addSwitch(menu, indexed, index == chosen, choice.key);
        action->setText(choice.caption);
        action->setData(choice.data);
        group->addAction(action);
    }
    return group;
}

} // namespace

MainMenus::MainMenus(QMainWindow& window)
{
    QMenuBar* const bar = window.menuBar();
    makeSearchMenu(addMenu(bar, QStringLiteral("m_search")));
    makeEditMenu(addMenu(bar, QStringLiteral("m_edit")));
    makeViewMenu(addMenu(bar, QStringLiteral("m_view")));
    makeOptionsMenu(addMenu(bar, QStringLiteral("m_options")));
    makeHelpMenu(addMenu(bar, QStringLiteral("m_help")));
}

void MainMenus::makeSearchMenu(QMenu* menu)
{
    m_searchNew = addEntry(menu, QStringLiteral("m_searchNew"), QKeySequence::New);
    m_searchContinue = addEntry(menu, QStringLiteral("m_searchContinue"), Qt::Key_F5);
    m_searchStop = addEntry(menu, QStringLiteral("m_searchStop"), Qt::SHIFT | Qt::Key_F5);
    menu->addSeparator();
    m_searchOpen = addEntry(menu, QStringLiteral("m_searchOpen"), QKeySequence::Open);
    m_searchSave = addEntry(menu, QStringLiteral("m_searchSave"), QKeySequence::Save);
    m_searchSaveAs = addEntry(menu, QStringLiteral("m_searchSaveAs"), Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    menu->addSeparator();
    QMenu* const import = addMenu(menu, QStringLiteral("m_import"));
    m_importUrlList = addEntry(import, QStringLiteral("m_importUrlList"));
    m_importCsv = addEntry(import, QStringLiteral("m_importCsv"));
    QMenu* const exports = addMenu(menu, QStringLiteral("m_export"));
    m_exportAsUrlList = addEntry(exports, QStringLiteral("m_exportAsUrlList"));
    m_exportAsCsv = addEntry(exports, QStringLiteral("m_exportAsCsv"));
    menu->addSeparator();
    m_addNumberedDL = addEntry(menu, QStringLiteral("m_addNumberedDL"));
    menu->addSeparator();
    m_quit = addEntry(menu, QStringLiteral("m_quit"), Qt::CTRL | Qt::Key_Q);
    m_quit->setMenuRole(QAction::QuitRole);
}

void MainMenus::makeEditMenu(QMenu* menu)
{
    m_edit = menu;
    m_selectedOpen = addEntry(menu, QStringLiteral("m_selectedOpen"));
    m_selectedOpenBy = addEntry(menu, QStringLiteral("m_selectedOpenBy"));
    m_selectedDownload = addEntry(menu, QStringLiteral("m_selectedDownload"), Qt::CTRL | Qt::Key_D);
    m_selectedToClipboard = addEntry(menu, QStringLiteral("m_selectedToClipboard"), QKeySequence::Copy);
    menu->addSeparator();
    m_selectedMark = addEntry(menu, QStringLiteral("m_selectedMark"), Qt::CTRL | Qt::Key_M);
    m_selectedDemark = addEntry(menu, QStringLiteral("m_selectedDemark"), Qt::CTRL | Qt::SHIFT | Qt::Key_M);
    m_selectAll = addEntry(menu, QStringLiteral("m_selectAll"), QKeySequence::SelectAll);
    m_selectedInvert = addEntry(menu, QStringLiteral("m_selectedInvert"), Qt::CTRL | Qt::Key_I);
    menu->addSeparator();
    QMenu* const marked = addMenu(menu, QStringLiteral("m_marked"));
    m_markedOpen = addEntry(marked, QStringLiteral("m_markedOpen"));
    m_markedOpenBy = addEntry(marked, QStringLiteral("m_markedOpenBy"));
    m_markedDownload = addEntry(marked, QStringLiteral("m_markedDownload"));
    m_markedToClipboard = addEntry(marked, QStringLiteral("m_markedToClipboard"));
    marked->addSeparator();
    m_markedSelect = addEntry(marked, QStringLiteral("m_markedSelect"));
    // Only in the results list: text fields and other lists use these keys themselves.
    m_selectedOpen->setShortcuts({ Qt::Key_Return, Qt::Key_Enter });
    for (QAction* const action : { m_selectedOpen, m_selectedToClipboard, m_selectAll })
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
}

void MainMenus::makeViewMenu(QMenu* menu)
{
    m_showFilter = addSwitch(menu, QStringLiteral("m_showFilter"), true, Qt::Key_F7);
    m_showTree = addSwitch(menu, QStringLiteral("m_showTree"), true, Qt::Key_F8);
    menu->addSeparator();
    const auto mode = [](FoundsMode value, int digit) {
        return Choice { QVariant::fromValue(static_cast<int>(value)), {}, Qt::CTRL | static_cast<Qt::Key>(digit) };
    };
    listModes = addChoices(addMenu(menu, QStringLiteral("m_foundsView")), QStringLiteral("m_listMode"),
        { mode(FoundsMode::Icons, Qt::Key_1), mode(FoundsMode::SmallIcons, Qt::Key_2),
            mode(FoundsMode::List, Qt::Key_3), mode(FoundsMode::Details, Qt::Key_4) },
        static_cast<qsizetype>(FoundsMode::Details));
    units = addChoices(addMenu(menu, QStringLiteral("m_showSizesIn")), QStringLiteral("m_einheit"),
        { { ResultFilter::sizeUnits[0], QStringLiteral("B"), {} },
            { ResultFilter::sizeUnits[1], QStringLiteral("kiB"), {} },
            { ResultFilter::sizeUnits[2], QStringLiteral("MiB"), {} } },
        0);
    menu->addSeparator();
    QMenu* const language = addMenu(menu, QStringLiteral("m_language"));
    languages = addChoices(language, QStringLiteral("m_lang"),
        { { int { LanguageTable::English }, QStringLiteral("English"), {} },
            { int { LanguageTable::German }, QStringLiteral("Deutsch"), {} },
            { int { LanguageTable::French }, QStringLiteral("Français"), {} } },
        LanguageTable::English);
    // No entry is checked while a language file is in use.
    languages->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    language->addSeparator();
    m_externLang = addEntry(language, QStringLiteral("m_externLang"));
    menu->addSeparator();
    m_showDlm = addEntry(menu, QStringLiteral("m_showDlm"), Qt::Key_F9);
}

void MainMenus::makeOptionsMenu(QMenu* menu)
{
    m_requests = addEntry(menu, QStringLiteral("m_requests"));
    menu->addSeparator();
    m_resolve3xx = addSwitch(menu, QStringLiteral("m_resolve3xx"), true);
    m_filterAutoApply = addSwitch(menu, QStringLiteral("m_filterAutoApply"), true);
    m_autoOpenDLM = addSwitch(menu, QStringLiteral("m_autoOpenDLM"), true);
}

void MainMenus::makeHelpMenu(QMenu* menu)
{
    m_goHelpfile = addEntry(menu, QStringLiteral("m_goHelpfile"), QKeySequence::HelpContents);
    menu->addSeparator();
    m_goWebsite = addEntry(menu, QStringLiteral("m_goWebsite"));
    m_goUpdates = addEntry(menu, QStringLiteral("m_goUpdates"));
    menu->addSeparator();
    m_about = addEntry(menu, QStringLiteral("m_about"));
    m_about->setMenuRole(QAction::AboutRole);
}
