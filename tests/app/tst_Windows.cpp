// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/About.h"
#include "app/BrowserPicker.h"
#include "app/MessageBoxes.h"
#include "base/allgemein.h"
#include "base/window/FittingArea.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QFontDatabase>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <functional>

/// What holds for every window: it fits a small screen, and can be used by the keyboard and by assistive technology.
class tst_Windows : public WindowFixture {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fitsASmallScreen_data() { everyWindow(); }
    void fitsASmallScreen();
    void controlsHaveNamesOfTheirOwn_data() { everyWindow(); }
    void controlsHaveNamesOfTheirOwn();
    void captionsFollowTheLanguage_data() { windowsWithCaptions(1); }
    void captionsFollowTheLanguage();
    void accessKeysDiffer_data() { everyWindow(); }
    void accessKeysDiffer();
    void foreignTextIsVisible_data();
    void foreignTextIsVisible();

private:
    /// Adds a row for each window whose captions are in the language table, in this many languages.
    static void windowsWithCaptions(int languages);
    static void everyWindow();
    /// The window of this name, shown in the language of the row.
    [[nodiscard]] QWidget& shownWindow();

    std::unique_ptr<MessageBoxes> m_boxes;
    std::unique_ptr<BrowserPicker> m_browserPicker;
};

namespace {

QWidget* topLevel(const QString& name)
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name || (name == QLatin1String("about") && window->inherits("QMessageBox")))
            return window;
    }
    return nullptr;
}

/// The controls of a window itself that can be seen.
QList<QWidget*> controlsOf(const QWidget& window)
{
    QList<QWidget*> controls = window.findChildren<QWidget*>();
    controls.removeIf(
        [&window](const QWidget* control) { return !isOf(control, window) || !control->isVisibleTo(&window); });
    return controls;
}

bool isScrolled(const QWidget* control)
{
    for (; control; control = control->parentWidget()) {
        if (qobject_cast<const FittingArea*>(control))
            return true;
    }
    return false;
}

/// Whether a part of a control is cut off, or it has less room than its content needs.
bool isCut(const QWidget& control)
{
    const QSize hint = control.minimumSizeHint();
    const QSize least(control.minimumWidth() > 0 ? control.minimumWidth() : hint.width(),
        control.minimumHeight() > 0 ? control.minimumHeight() : hint.height());
    return control.visibleRegion().boundingRect() != control.rect() || control.width() < least.width()
        || control.height() < least.height();
}

/// The texts of which each access key is asked for with Alt.
QStringList captionsOf(const QWidget& window)
{
    QStringList captions;
    for (const QWidget* const control : controlsOf(window))
        captions += qobject_cast<const QMenu*>(control) ? QString() : captionOf(control);
    if (const auto* const bar = window.findChild<QMenuBar*>()) {
        for (const QAction* const menu : bar->actions())
            captions += menu->text();
    }
    return captions;
}

/// The captions whose access key is that of one before, also in the menus below.
QStringList clashes(const QStringList& captions, const QList<QAction*>& menus)
{
    static const QRegularExpression mark(QStringLiteral("&([^&])"));
    QStringList found;
    QSet<QString> taken;
    for (const QString& caption : captions) {
        const QString key = mark.match(caption).captured(1).toLower();
        if (!key.isEmpty() && taken.contains(key))
            found += caption;
        taken += key;
    }
    for (const QAction* const entry : menus) {
        QStringList below;
        for (const QAction* const action : entry->menu() ? entry->menu()->actions() : QList<QAction*>())
            below += action->text();
        if (entry->menu())
            found += clashes(below, entry->menu()->actions());
    }
    return found;
}

/// Shows its end first, and has a sign without width and a line separator.
const QString foreignName = QStringLiteral("a\u202Etxt\u200B\u2028.twk");

} // namespace

void tst_Windows::init()
{
    WindowFixture::init();
    QFont large = QApplication::font();
    large.setPointSize(16);
    QApplication::setFont(large);
    start();
    m_boxes = std::make_unique<MessageBoxes>();
    m_browserPicker = std::make_unique<BrowserPicker>(m_session->language, m_messages, m_shell, QStringList());
}

void tst_Windows::cleanup()
{
    m_browserPicker.reset();
    m_boxes.reset();
    WindowFixture::cleanup();
}

void tst_Windows::windowsWithCaptions(int languages)
{
    const auto row = table<QString, QByteArray, int>("name", "command", "language");
    for (int language = 0; language < languages; ++language) {
        for (const auto& [name, command] :
            { std::pair("main", ""), { "DLManager", "m_showDlm" }, { "dialog_getSearch", "m_searchNew" },
                { "getDLStack", "m_addNumberedDL" }, { "dialog_requests", "m_requests" },
                { "dialog_openBy", "m_selectedOpenBy" }, { "dialog_getURL", "" } })
            row(QByteArray(name) + ' ' + QByteArray::number(language), QLatin1String(name), command, language);
    }
}

void tst_Windows::everyWindow()
{
    windowsWithCaptions(LanguageTable::builtInCount);
    for (int language = 0; language < LanguageTable::builtInCount; ++language)
        QTest::addRow("about %d", language) << QStringLiteral("about") << QByteArray() << language;
}

QWidget& tst_Windows::shownWindow()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, command);
    QFETCH(int, language);
    m_session->language.selectBuiltIn(language);
    if (!command.isEmpty())
        choose(command.constData());
    if (name == QLatin1String("dialog_getURL"))
        m_browserPicker->pickUrl("http://h/", [](const QByteArray&) {});
    if (name == QLatin1String("about"))
        m_boxes->tell(
            { Messages::Sign::Information, name, about::text(m_session->language) + u'\n' + QString(200, u'x') });
    QWidget* const window = topLevel(name);
    if (!window)
        qFatal("There is no window %s.", qPrintable(name));
    return *window;
}

void tst_Windows::fitsASmallScreen()
{
    if (QFontDatabase::families().isEmpty())
        QSKIP("Without a font every letter counts as a square, so texts are far too wide.");
    QWidget& window = shownWindow();
    const QSize screen = window.screen()->availableSize();
    QVERIFY(window.width() <= screen.width() && window.height() <= screen.height());
    const QSize small = window.size().boundedTo({ 1024, 560 }); // and a title bar
    window.resize(small);
    QTRY_COMPARE(window.size(), small);
    QStringList cut;
    for (const QWidget* const control : controlsOf(window)) {
        if (!isScrolled(control) && !control->objectName().isEmpty() && isCut(*control))
            cut += control->objectName();
    }
    QCOMPARE(cut.join(u' '), QString());
}

void tst_Windows::controlsHaveNamesOfTheirOwn()
{
    const QWidget& window = shownWindow();
    constexpr qsizetype longest = 60;
    static const QRegularExpression sentence(QStringLiteral("[^.]\\.( |$)|;"));
    QStringList wrong;
    QSet<QString> names;
    for (QWidget* const control : controlsOf(window)) {
        if ((control->focusPolicy() & Qt::TabFocus) == 0 || control->focusProxy())
            continue;
        const QString name = QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
        if (name.isEmpty() || name.size() > longest || name.contains(sentence) || names.contains(name))
            wrong += control->objectName() + u'=' + name;
        names += name;
    }
    QCOMPARE(wrong.join(u'\n'), QString());
}

void tst_Windows::captionsFollowTheLanguage()
{
    const QWidget& window = shownWindow();
    // Signs, and texts that are not captions.
    QString fixed =
        QStringLiteral("lbl_depthTo lbl_sizeTo lbl_sizeUnit lbl_to nAngezeigte summary editLink editQuelle editUrl "
                       "addFilterText removeFilterText b_addToSubUrlList b_deleteFromSubList sprachAdd "
                       "sprachRem b_programmAussuchen");
    for (int number = 0; number < 7; ++number)
        fixed += QStringLiteral(" m_lang(%1) m_einheit(%1) panel_%1").arg(number);
    for (int language = 0; language < LanguageTable::builtInCount; ++language) {
        m_session->language.selectBuiltIn(language);
        QCOMPARE(wrongCaptions(window, m_session->language, fixed.split(u' ')).join(u'\n'), QString());
        const QString title = m_session->language.text(window.objectName().toUtf8());
        if (const auto* const instructions = window.findChild<QLabel*>(QStringLiteral("instructions")))
            QCOMPARE(instructions->text(), m_session->language.text("more.dialog_getURL.instructions"));
        QVERIFY2(title.isEmpty() || window.windowTitle() == title, qPrintable(window.windowTitle()));
    }
}

void tst_Windows::accessKeysDiffer()
{
    const QWidget& window = shownWindow();
    const auto* const bar = window.findChild<QMenuBar*>();
    const QStringList found = clashes(captionsOf(window), bar ? bar->actions() : QList<QAction*>());
    // These captions are fixed.
    const bool isEnglishMain = qstrcmp(QTest::currentDataTag(), "main 0") == 0;
    QCOMPARE(found.join(u' '), isEnglishMain ? QStringLiteral("&Off &Whitelist &Blacklist &Demark") : QString());
}

void tst_Windows::foreignTextIsVisible_data()
{
    const auto row = table<std::function<QString()>>("shown");
    // Picks a URL into a field of a dialog.
    const auto picked = [this](const char* command, const char* button, const char* name) {
        return [=, this] {
            choose(command);
            click(button);
            return the<QLineEdit>(name).text();
        };
    };
    const auto openedTitle = [this] {
        const QString name = m_folder->filePath(foreignName);
        const bool opens = writeFile(name, "StartUrl=http://h/" + m_picker.choice + "\r\nResults:\r\n");
        m_window->open(name);
        return opens && QTest::qWaitFor([this] { return m_window->windowTitle().contains(u'–'); })
            ? m_window->windowTitle()
            : QString();
    };
    row("the title", openedTitle);
    row("the status bar",
        [this, openedTitle] { return openedTitle().isEmpty() ? QString() : QString::fromUtf8(panel(2)); });
    row("the start URL", picked("m_searchNew", "editLink", "startlink"));
    row("the numbered URL", picked("m_addNumberedDL", "editUrl", "startUrl"));
    row("the address in the picker", [this] {
        m_browserPicker->pickUrl(m_picker.choice, [](const QByteArray&) {});
        return control<QLineEdit>(*topLevel(QStringLiteral("dialog_getURL")), "link").text();
    });
    row("a message", [this] {
        m_boxes->tell({ Messages::Sign::Warning, {}, foreignName });
        return qobject_cast<QMessageBox*>(topLevel(QStringLiteral("about")))->text();
    });
}

void tst_Windows::foreignTextIsVisible()
{
    QFETCH(std::function<QString()>, shown);
    m_picker.choice = allgemein::toSystem(foreignName);
    const QString text = shown();
    QVERIFY2(text.contains(QLatin1String("txt")), qPrintable(text));
    const auto codes = text.toUcs4();
    QVERIFY2(std::none_of(codes.begin(), codes.end(), allgemein::isHiddenControl), qPrintable(text));
}

QTEST_MAIN(tst_Windows)

#include "tst_Windows.moc"
