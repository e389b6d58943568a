// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/SearchOptions.h"
#include "crawl/window/dialog_getSearch.h"
#include "support/TestSeams.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>

class tst_dialog_getSearch : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void init();
    void confirms_data();
    void confirms();
    void aCancelledNoteStartsNothing();
    void beginsInTheUrl();
    void cancelKeepsWhatIsTyped();
    void lookingChangesNothing();
    void switchesDependOnEachOther();
    void editsSubUrls();
    void offersTheLevelsOfTheStartUrl();
    void picksUrls();

private:
    [[nodiscard]] QWidget& window() const { return *m_dialog; }

    SearchOptions m_options;
    LanguageTable m_language;
    std::unique_ptr<dialog_getSearch> m_dialog;
};

void tst_dialog_getSearch::init()
{
    m_options = {};
    resetSeams();
    m_dialog = std::make_unique<dialog_getSearch>(m_options, seams(m_language), nullptr);
    m_dialog->show();
}

void tst_dialog_getSearch::confirms_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("limited");
    QTest::addColumn<QByteArray>("startUrl");
    QTest::addColumn<QString>("told");
    const auto row = [this](const char* title, const char* typed, bool limited, const char* url, const char* told) {
        QTest::newRow(title) << QString::fromLatin1(typed) << limited << QByteArray(url) << m_language.text(told);
    };
    row("blanks around it", "  http://h/ ", true, "http://h/", "");
    row("a host that begins with a dot", "http://.org", true, "", "lang.invalidStartUrl");
    row("capitals", "HTTP://WWW.H/A", true, "http://www.h/A", "");
    row("another protocol", "https://h/", true, "http://https://h/", "more.onlyHttp");
    row("another protocol in capitals", "HTTPS://h/", true, "http://https://h/", "more.onlyHttp");
    row("no depth limit", "h", false, "http://h", "lang.warnNoSearchLimit");
}

void tst_dialog_getSearch::confirms()
{
    QFETCH(QString, typed);
    QFETCH(bool, limited);
    QFETCH(QByteArray, startUrl);
    QFETCH(QString, told);
    QSignalSpy confirmed(m_dialog.get(), &dialog_getSearch::confirmed);
    control<QLineEdit>(window(), "startlink").setText(typed);
    control<QCheckBox>(window(), "c_maxDepth").setChecked(limited);
    click(window(), "b_ok");

    const bool starts = !startUrl.isEmpty();
    QCOMPARE(confirmed.count(), starts ? 1 : 0);
    QCOMPARE(m_dialog->isVisible(), !starts);
    const QList<Messages::Box> boxes = m_messages.told + m_messages.asked;
    QCOMPARE(boxes.size(), told.isEmpty() ? 0 : 1);
    if (!told.isEmpty()) {
        QCOMPARE(boxes.first().text, told);
        QCOMPARE(boxes.first().title, m_language.text(starts ? "lang.note" : "lang.userFailure"));
    }
    if (starts) {
        QCOMPARE(m_options.startUrl, startUrl);
        QCOMPARE(control<QLineEdit>(window(), "startlink").text(), QString::fromLatin1(startUrl));
    }
}

void tst_dialog_getSearch::aCancelledNoteStartsNothing()
{
    QSignalSpy confirmed(m_dialog.get(), &dialog_getSearch::confirmed);
    control<QLineEdit>(window(), "startlink").setText(QStringLiteral("https://h/"));
    control<QCheckBox>(window(), "c_maxDepth").setChecked(false);
    m_messages.answer = false;
    click(window(), "b_ok");
    QCOMPARE(m_messages.asked.size(), 1);
    QCOMPARE(confirmed.count(), 0);
    QVERIFY(m_dialog->isVisible());
    m_messages.answer = true;
    click(window(), "b_ok");
    QCOMPARE(m_messages.asked.size(), 3);
    QCOMPARE(confirmed.count(), 1);
}

void tst_dialog_getSearch::beginsInTheUrl()
{
    auto& startUrl = control<QLineEdit>(window(), "startlink");
    startUrl.setText(QStringLiteral("http://old/"));
    control<QWidget>(window(), "tiefe").setFocus();
    m_dialog->hide();
    m_dialog->show();
    QCOMPARE(m_dialog->focusWidget(), &startUrl);
    QTest::keyClicks(m_dialog->focusWidget(), QStringLiteral("h"));
    QCOMPARE(startUrl.text(), QStringLiteral("h"));
}

void tst_dialog_getSearch::cancelKeepsWhatIsTyped()
{
    control<QLineEdit>(window(), "startlink").setText(QStringLiteral("http://h/ü"));
    control<QLineEdit>(window(), "quellUrl").setText(QStringLiteral("http://r/"));
    click(window(), "b_cancel");
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_options.startUrl, allgemein::toSystem(u"http://h/ü"));
    QCOMPARE(m_options.quellUrl, "http://r/");
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
    for (const char* const name : { "c_maxDepth", "c_analyseAllSrc", "rad_followSub(1)" })
        toggle(window(), name);
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

    // What is typed and was not added yet is meant as well.
    QTest::keyClicks(&entry, QStringLiteral("Other.org"));
    click(window(), "b_ok");
    QCOMPARE(confirmed.count(), 1);
    QCOMPARE(m_options.unterpfade.size(), size_t { 2 });
    QCOMPARE(m_options.unterpfade.back().text, "http://other.org");
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

QTEST_MAIN(tst_dialog_getSearch)

#include "tst_dialog_getSearch.moc"
