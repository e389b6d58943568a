// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/dialog_getSearch.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/SearchOptions.h"
#include "support/TestSeams.h"
#include "support/WindowDriver.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <memory>

class tst_dialog_getSearch : public QObject {
    Q_OBJECT

private slots:
    void init();
    void confirms_data();
    void confirms();
    void changesEveryOption();
    void lookingChangesNothing();
    void switchesDependOnEachOther();
    void editsSubUrls();
    void offersTheLevelsOfTheStartUrl();
    void picksUrls();
    void everyCaptionHasItsKey();

private:
    [[nodiscard]] QWidget& window() const { return *m_dialog; }

    SearchOptions m_options;
    LanguageTable m_language;
    AnsweredMessages m_messages;
    AnsweredPicker m_picker;
    std::unique_ptr<dialog_getSearch> m_dialog;
};

void tst_dialog_getSearch::init()
{
    m_options = {};
    m_messages = {};
    m_picker = {};
    m_dialog = std::make_unique<dialog_getSearch>(m_options, m_language, m_messages, m_picker, nullptr);
    m_dialog->show();
}

void tst_dialog_getSearch::confirms_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("limited");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("startUrl");
    QTest::addColumn<QString>("told");
    const QString invalid = m_language.text("lang.invalidStartUrl");
    const QString unlimited = m_language.text("lang.warnNoSearchLimit");
    const auto row = [](const char* title, const char* typed, bool limited, int mode, const char* url,
                         const QString& told) {
        QTest::newRow(title) << QString::fromLatin1(typed) << limited << mode << QByteArray(url) << told;
    };
    row("a bare host", "srv.example.org", true, 0, "http://srv.example.org", {});
    row("blanks around it", "  http://h/ ", true, 0, "http://h/", {});
    row("capital letters are no protocol", "HTTP://h/", true, 0, "http://HTTP://h/", {});
    row("a host that begins with a dot", "http://.org", true, 0, "", invalid);
    row("nothing", "", true, 0, "", invalid);
    row("another protocol", "https://h/", true, 0, "http://https://h/", m_language.text("more.onlyHttp"));
    row("no depth limit", "h", false, 0, "http://h", unlimited);
    row("no depth limit, outside of sub-URLs", "h", false, 2, "http://h", unlimited);
    row("no depth limit, inside of sub-URLs", "h", false, 1, "http://h", {});
}

void tst_dialog_getSearch::confirms()
{
    QFETCH(QString, typed);
    QFETCH(bool, limited);
    QFETCH(int, mode);
    QFETCH(QByteArray, startUrl);
    QFETCH(QString, told);
    QSignalSpy confirmed(m_dialog.get(), &dialog_getSearch::confirmed);
    control<QLineEdit>(window(), "startlink").setText(typed);
    control<QCheckBox>(window(), "c_maxDepth").setChecked(limited);
    click(window(), qPrintable(QStringLiteral("rad_followSub(%1)").arg(mode)));
    click(window(), "b_ok");

    const bool starts = !startUrl.isEmpty();
    QCOMPARE(confirmed.count(), starts ? 1 : 0);
    QCOMPARE(m_dialog->isVisible(), !starts);
    QCOMPARE(m_messages.told.size(), told.isEmpty() ? 0 : 1);
    if (!told.isEmpty()) {
        QCOMPARE(m_messages.told.first().text, told);
        QCOMPARE(m_messages.told.first().title, m_language.text(starts ? "lang.note" : "lang.userFailure"));
    }
    if (starts) {
        QCOMPARE(m_options.startUrl, startUrl);
        QCOMPARE(control<QLineEdit>(window(), "startlink").text(), QString::fromLatin1(startUrl));
    }
}

void tst_dialog_getSearch::changesEveryOption()
{
    const SearchOptions before = m_options;
    control<QLineEdit>(window(), "startlink").setText(QStringLiteral("http://h/ü"));
    control<QLineEdit>(window(), "quellUrl").setText(QStringLiteral("http://r/"));
    control<QSpinBox>(window(), "tiefe").setValue(7);
    for (const char* const name : { "c_maxDepth", "c_AnalyseAnchors", "c_analyseLink", "c_AnalyseFrames",
             "c_AnalyseEPic", "c_analyseForms", "c_analyseAllSrc", "rad_followSub(2)" })
        click(window(), name);
    control<QLineEdit>(window(), "unterpfadEingabe").setText(QStringLiteral("h/a/x"));
    click(window(), "b_addToSubUrlList");
    click(window(), "b_cancel");
    QVERIFY(!m_dialog->isVisible());

    QCOMPARE(m_options.startUrl, allgemein::toSystem(u"http://h/ü"));
    QCOMPARE(m_options.quellUrl, "http://r/");
    QCOMPARE(m_options.tiefe, 7);
    QCOMPARE(m_options.maxDepth, !before.maxDepth);
    QCOMPARE(m_options.followSub, FollowMode::Outside);
    QCOMPARE(m_options.unterpfade.size(), size_t { 1 });
    QCOMPARE(m_options.unterpfade.front().text, "http://h:80/a/");
    QCOMPARE(m_options.unterpfade.front().level, 3);
    const AnalysisSwitches& now = m_options.analysis;
    const AnalysisSwitches& then = before.analysis;
    QVERIFY(now.anchors != then.anchors && now.links != then.links && now.frames != then.frames);
    QVERIFY(now.images != then.images && now.forms != then.forms && now.allSrc != then.allSrc);

    // Another window over the same options shows the same.
    dialog_getSearch other(m_options, m_language, m_messages, m_picker, nullptr);
    for (const char* const name : { "c_maxDepth", "c_AnalyseAnchors", "c_analyseLink", "c_AnalyseFrames",
             "c_AnalyseEPic", "c_analyseForms", "c_analyseAllSrc", "rad_followSub(2)" }) {
        QCOMPARE(
            control<QAbstractButton>(other, name).isChecked(), control<QAbstractButton>(window(), name).isChecked());
    }
    QCOMPARE(control<QListWidget>(other, "unterpfade").item(0)->text(), QStringLiteral("http://h:80/a/"));
    QCOMPARE(control<QSpinBox>(other, "tiefe").value(), 7);
}

void tst_dialog_getSearch::lookingChangesNothing()
{
    m_options.startUrl = "http://h/\xfc" + QByteArray(40'000, 'x');
    m_options.quellUrl = "\xff";
    m_options.tiefe = -4;
    m_options.unterpfade = { SubUrl::fromText("http://h:80/\xfc/") };
    const SearchOptions before = m_options;
    m_dialog->showOptions();
    click(window(), "b_cancel");
    QCOMPARE(m_options.startUrl, before.startUrl);
    QCOMPARE(m_options.quellUrl, before.quellUrl);
    QCOMPARE(m_options.tiefe, before.tiefe);
    QCOMPARE(m_options.unterpfade.front().text, before.unterpfade.front().text);
}

void tst_dialog_getSearch::switchesDependOnEachOther()
{
    const auto isEnabled = [this](const char* name) {
        return control<QWidget>(window(), name).isEnabled();
    };
    QVERIFY(isEnabled("tiefe") && isEnabled("c_AnalyseFrames") && isEnabled("c_AnalyseEPic"));
    QVERIFY(!isEnabled("unterpfade") && !isEnabled("unterpfadEingabe") && !isEnabled("b_copyStartUrl"));
    const bool frames = control<QCheckBox>(window(), "c_AnalyseFrames").isChecked();
    click(window(), "c_maxDepth");
    click(window(), "c_analyseAllSrc");
    click(window(), "rad_followSub(1)");
    QVERIFY(!isEnabled("tiefe") && !isEnabled("c_AnalyseFrames") && !isEnabled("c_AnalyseEPic"));
    QCOMPARE(control<QCheckBox>(window(), "c_AnalyseFrames").isChecked(), frames);
    QVERIFY(isEnabled("unterpfade") && isEnabled("unterpfadEingabe") && isEnabled("b_copyStartUrl"));
}

void tst_dialog_getSearch::editsSubUrls()
{
    click(window(), "rad_followSub(1)");
    auto& entry = control<QLineEdit>(window(), "unterpfadEingabe");
    auto& list = control<QListWidget>(window(), "unterpfade");
    QSignalSpy confirmed(m_dialog.get(), &dialog_getSearch::confirmed);
    control<QLineEdit>(window(), "startlink").setText(QStringLiteral("http://h/x/"));
    QTest::keyClicks(&entry, QStringLiteral("example.org"));
    QTest::keyClick(&entry, Qt::Key_Return);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.item(0)->text(), QStringLiteral("http://example.org"));
    QVERIFY(entry.text().isEmpty());
    QCOMPARE(confirmed.count(), 0);

    click(window(), "b_copyStartUrl");
    QCOMPARE(entry.text(), QStringLiteral("http://h/x/"));
    click(window(), "b_addToSubUrlList");
    list.item(0)->setSelected(true);
    click(window(), "b_deleteFromSubList");
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.item(0)->text(), QStringLiteral("http://h:80/x/"));
}

void tst_dialog_getSearch::offersTheLevelsOfTheStartUrl()
{
    click(window(), "rad_followSub(1)");
    control<QLineEdit>(window(), "startlink").setText(QStringLiteral("www.h.org/a/b&c/x.html"));
    QMenu& menu = *control<QToolButton>(window(), "b_copyStartUrl").menu();
    emit menu.aboutToShow();
    QStringList entered;
    for (QAction* const level : menu.actions()) {
        level->trigger();
        entered += control<QLineEdit>(window(), "unterpfadEingabe").text();
        // Each of them comes out of the list as it goes in.
        QCOMPARE(SubUrl::fromText(entered.last().toLatin1()).text, entered.last().toLatin1());
    }
    QCOMPARE(entered.join(u' '),
        QStringLiteral("http://org http://h.org http://www.h.org http://www.h.org:80/ http://www.h.org:80/a/ "
                       "http://www.h.org:80/a/b&c/"));
}

void tst_dialog_getSearch::picksUrls()
{
    m_picker.choice = "http://picked/";
    click(window(), "editLink");
    QCOMPARE(control<QLineEdit>(window(), "startlink").text(), QStringLiteral("http://picked/"));
    m_picker.choice.clear();
    click(window(), "editQuelle");
    QCOMPARE(control<QLineEdit>(window(), "quellUrl").text(), QString());
}

void tst_dialog_getSearch::everyCaptionHasItsKey()
{
    const QStringList signs { QStringLiteral("editLink"), QStringLiteral("editQuelle"),
        QStringLiteral("b_addToSubUrlList"), QStringLiteral("b_deleteFromSubList") };
    for (int index = 0; index < LanguageTable::builtInCount; ++index) {
        m_language.selectBuiltIn(index);
        QCOMPARE(wrongCaptions(window(), m_language, signs).join(u'\n'), QString());
        QCOMPARE(m_dialog->windowTitle(), m_language.text("dialog_getSearch"));
    }
    m_language.selectBuiltIn(LanguageTable::English);
}

QTEST_MAIN(tst_dialog_getSearch)

#include "tst_dialog_getSearch.moc"
