// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "requests/CookieStore.h"
#include "requests/window/dialog_requests.h"
#include "support/Table.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

class tst_dialog_requests : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void init();
    void asksBeforeCookiesAreSent();
    void cancelKeepsWhatItMay();
    void ordersLanguages();
    void switchesDependOnEachOther();
    void importsCookies_data();
    void importsCookies();
    void asksBeforeItTakesAllCookies();
    void deletesCookies();

private:
    [[nodiscard]] QWidget& window() const { return *m_dialog; }
    [[nodiscard]] QListWidget& stock() const { return control<QListWidget>(window(), "sprachVorrat"); }
    [[nodiscard]] QListWidget& chosen() const { return control<QListWidget>(window(), "sprachAuswahl"); }
    [[nodiscard]] QString header() const { return control<QLineEdit>(window(), "t_sprachen").text(); }
    [[nodiscard]] QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    void check(const char* box, bool on) const { control<QCheckBox>(window(), box).setChecked(on); }
    void select(const QStringList& codes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    RequestPrefs m_prefs;
    RequestPrefs m_own;
    CookieStore m_cookies;
    LanguageTable m_language;
    std::unique_ptr<dialog_requests> m_dialog;
};

void tst_dialog_requests::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_prefs = {};
    m_own = {};
    resetSeams();
    m_cookies.setCookieFolder(m_folder->path());
    m_dialog = std::make_unique<dialog_requests>(m_prefs, m_own, m_cookies, seams(m_language), nullptr);
    m_dialog->run();
}

/// Adds the stock's entries with these codes to the chosen languages.
void tst_dialog_requests::select(const QStringList& codes) const
{
    stock().clearSelection();
    for (const QString& code : codes)
        stock().findItems(code + u' ', Qt::MatchStartsWith).constFirst()->setSelected(true);
    click(window(), "sprachAdd");
}

void tst_dialog_requests::asksBeforeCookiesAreSent()
{
    check("c_useCookies", true);
    QVERIFY(!m_prefs.useCookies);
    click(window(), "b_apply");
    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_prefs.useCookies);
    QVERIFY(!m_prefs.dontWarnAboutCookiesAgain);
    QCOMPARE(m_messages.asked.value(0).text, m_language.text("lang.warnCookies"));
    QCOMPARE(m_messages.asked.value(0).title, QStringLiteral("Question"));
    m_messages.closes = true;
    click(window(), "b_apply");
    QVERIFY(!m_prefs.dontWarnAboutCookiesAgain);
    m_messages.closes = false;
    m_messages.answer = false;
    click(window(), "b_apply");
    QVERIFY(m_prefs.useCookies);
    QVERIFY(m_prefs.dontWarnAboutCookiesAgain);
    click(window(), "b_ok");
    QCOMPARE(m_messages.asked.size(), 3);
}

void tst_dialog_requests::cancelKeepsWhatItMay()
{
    m_prefs.userAgent = "from a file";
    auto& userAgent = control<QComboBox>(window(), "t_userAgent");
    QCOMPARE(userAgent.currentText(), QString::fromLatin1(RequestPrefs::readyUserAgents().first()));
    QCOMPARE(userAgent.count(), 5);
    userAgent.setCurrentText(QStringLiteral("typed"));
    check("c_referrer", false);
    check("c_useLanguage", true);
    select({ QStringLiteral("fr") });
    click(window(), "b_cancel");
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_prefs.userAgent, "from a file");
    QVERIFY(m_prefs.languageHeader.isEmpty());
    m_dialog->run();
    QVERIFY(control<QCheckBox>(window(), "c_referrer").isChecked());
    QCOMPARE(userAgent.currentText(), QStringLiteral("typed"));
    QCOMPARE(chosen().count(), 1);
    // Typed text is not completed to a ready one.
    userAgent.setFocus();
    userAgent.lineEdit()->selectAll();
    QTest::keyClicks(userAgent.lineEdit(), QStringLiteral("mozilla/5.0"));
    click(window(), "b_ok");
    QCOMPARE(m_prefs.userAgent, "mozilla/5.0");
    QCOMPARE(m_own.userAgent, "mozilla/5.0");
    QCOMPARE(m_prefs.languageHeader, "fr;q=1");
}

void tst_dialog_requests::ordersLanguages()
{
    const auto order = [this] {
        return m_prefs.sprachAuswahl.join(' ');
    };
    check("c_useLanguage", true);
    select({ QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("fr") });
    QCOMPARE(header(), QStringLiteral("de;q=1, en;q=0.666666666666667, fr;q=0.333333333333333"));
    QCOMPARE(chosen().currentRow(), 2);
    for (int more = 0; more < 3; ++more)
        click(window(), "sprachAuswahlHoch");
    QCOMPARE(chosen().currentItem()->text(), QStringLiteral("fr French"));
    QCOMPARE(order(), "fr French de German en English");
    click(window(), "sprachAuswahlRunter");
    QCOMPARE(order(), "de German fr French en English");
    select({ QStringLiteral("de") });
    QCOMPARE(chosen().count(), 4);
    click(window(), "sprachAuswahlRunter");
    QCOMPARE(chosen().currentRow(), 3);
    click(window(), "sprachRem");
    m_dialog->activateWindow();
    chosen().setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    QTest::keyClick(&chosen(), Qt::Key_Delete);
    QCOMPARE(header(), QStringLiteral("de;q=1, fr;q=0.5"));
    m_dialog->run();
    check("c_useLanguage", true); // Nothing is selected now, even if a list has the keyboard focus.
    chosen().setCurrentRow(0, QItemSelectionModel::NoUpdate);
    for (const char* button : { "sprachRem", "sprachAuswahlRunter" })
        click(window(), button);
    QCOMPARE(header(), QStringLiteral("de;q=1, fr;q=0.5"));
    chosen().setCurrentRow(0);
    for (int more = 0; more < 3; ++more)
        click(window(), "sprachRem");
    QVERIFY(order().isEmpty());
    QVERIFY(header().isEmpty());
    stock().scrollToTop();
    const QPoint second = stock().visualItemRect(stock().item(1)).center();
    QTest::mouseClick(stock().viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(stock().viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(order(), "ab Abkhazian");
}

void tst_dialog_requests::switchesDependOnEachOther()
{
    const auto isOn = [this](const char* name) {
        return control<QWidget>(window(), name).isEnabled();
    };
    for (const char* name :
        { "sprachRem", "sprachAdd", "sprachAuswahl", "t_sprachen", "sprachAuswahlHoch", "sprachAuswahlRunter",
            "b_cookiesImportIE", "b_cookiesImportFF", "b_cookiesImportFF3", "b_deleteSavedCookies" })
        QVERIFY2(!isOn(name), name);
    QVERIFY(isOn("t_userAgent"));
    check("c_useUserAgent", false);
    check("c_useLanguage", true);
    check("c_useCookies", true);
    QVERIFY(!isOn("t_userAgent"));
    for (const char* name : { "sprachRem", "sprachAuswahlRunter", "b_cookiesImportFF3", "b_deleteSavedCookies" })
        QVERIFY2(isOn(name), name);
    QVERIFY(!isOn("b_cookiesImportIE"));
    QCOMPARE(control<QWidget>(window(), "b_cookiesImportIE").toolTip(), m_language.text("more.noExplorer"));
    m_registry.values.insert(QStringLiteral("Cookies"), m_folder->path());
    click(window(), "b_cancel");
    m_dialog->run();
    QVERIFY(!isOn("b_cookiesImportFF"));
    check("c_useCookies", true);
    QVERIFY(isOn("b_cookiesImportIE"));
}

void tst_dialog_requests::importsCookies_data()
{
    const auto row = table<QByteArray, QString, bool>("button", "pattern", "works");
    row("cookies.txt", "b_cookiesImportFF", QStringLiteral("cookies.txt"), true);
    row("a text that is no database", "b_cookiesImportFF3", QStringLiteral("cookies.sqlite"), false);
}

void tst_dialog_requests::importsCookies()
{
    QFETCH(QByteArray, button);
    QFETCH(bool, works);
    check("c_useCookies", true);
    click(window(), button.constData());
    QVERIFY(m_messages.told.isEmpty());
    QCOMPARE(m_dialogs.requests.value(0).types.value(0).label, QStringLiteral("Firefox cookie DBs"));
    QTEST(m_dialogs.requests.value(0).types.value(0).pattern, "pattern");
    m_dialogs.choice = file("cookies.txt");
    QVERIFY(writeFile(m_dialogs.choice, QByteArray("h\tx\t/\tx\t0\ta\t1\n").repeated(100)));
    click(window(), button.constData());
    QTRY_COMPARE(m_messages.told.size(), 1);
    const QString text = m_messages.told.first().text;
    QVERIFY(works ? text == QLatin1String("100 Cookies were set.") : text.startsWith(QLatin1String("SQLite: ")));
}

void tst_dialog_requests::asksBeforeItTakesAllCookies()
{
    check("c_useCookies", true);
    m_dialogs.choice = file("exported.txt");
    QVERIFY(writeFile(m_dialogs.choice, "h\tx\t/\tFALSE\t0\ta\t1\nh\tx\t/\tTRUE\t0\tb\t2\n"));
    m_messages.answer = false;
    click(window(), "b_cookiesImportFF");
    QTRY_COMPARE(m_messages.asked.size(), 1);
    QCOMPARE(m_dialogs.requests.value(0).types.value(1).pattern, QStringLiteral("*"));
    QVERIFY(m_messages.returnIsHarmless());
    QVERIFY(m_messages.askedText().startsWith("1 Cookies were set.\n"));
    QCOMPARE(m_cookies.getCookieHeader("http://h/"), "Cookie: a=1\r\n");
    m_messages.answer = true;
    click(window(), "b_cookiesImportFF");
    QTRY_COMPARE(m_messages.told.size(), 1);
    QCOMPARE(m_messages.toldText(), "2 Cookies were set.");
    QCOMPARE(m_cookies.getCookieHeader("http://h/"), "Cookie: a=1; b=2\r\n");
}

void tst_dialog_requests::deletesCookies()
{
    QVERIFY(m_cookies.saveCookie("h", "/", "a", "1"));
    QVERIFY(m_cookies.saveCookie("b.c", "/", "a", "1"));
    // An unfinished file of a killed program, and a file of another program.
    QVERIFY(writeFile(file("17.tkc.tmp"), "/\ta\t1\r\n"));
    QVERIFY(writeFile(file("report.tmp"), "x"));
    check("c_useCookies", true);
    click(window(), "b_deleteSavedCookies");
    QCOMPARE(m_cookies.getCookieHeader("http://h/"), "");
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList { QStringLiteral("report.tmp") });
    QCOMPARE(m_messages.told.value(0).text, QStringLiteral("Cookies were deleted."));
}

QTEST_MAIN(tst_dialog_requests)

#include "tst_dialog_requests.moc"
