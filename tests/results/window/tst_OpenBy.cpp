// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DesktopShell.h"
#include "base/lang.h"
#include "results/OpenBy.h"
#include "results/window/dialog_openBy.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using Urls = QList<QByteArray>;

class tst_OpenBy : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void init();
    void startsRealPrograms_data();
    void startsRealPrograms();
    void startsFromTheDialog();
    void staysWhenNothingStarts();
    void asksBeforeManyPrograms();

private:
    void confirm(const Urls& urls);
    [[nodiscard]] QLineEdit& field(const char* name) const { return control<QLineEdit>(*m_dialog, name); }

    LanguageTable m_language;
    std::unique_ptr<dialog_openBy> m_dialog;
};

void tst_OpenBy::init()
{
    resetSeams();
    m_dialog = std::make_unique<dialog_openBy>(seams(m_language), nullptr);
}

void tst_OpenBy::confirm(const Urls& urls)
{
    m_dialog->run([urls] { return urls; });
    click(*m_dialog, "b_ok");
}

void tst_OpenBy::startsRealPrograms_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<Urls>("urls");
    QTest::addColumn<QByteArray>("arguments");
    const auto row = [](const char* name, const char* parameter, const char* url, const char* arguments) {
        QTest::newRow(name) << QString::fromUtf8(parameter) << Urls { url } << QByteArray(arguments);
    };
    const char* const shell = "http://h/$(x)`y`;z|w&v>u<t*?~!#'\\^%PATH%";
    row("what a shell would act on", "", shell, shell);
    row("a parameter with quotes", "-a \"b c\" -u ", "http://h/", "-a\nb c\n-u\nhttp://h/");
    row("a parameter that follows at once", "--url=", "http://h/a b", "--url=http://h/a%20b");
}

void tst_OpenBy::startsRealPrograms()
{
    QFETCH(QString, parameter);
    QFETCH(Urls, urls);
    QFETCH(QByteArray, arguments);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("arguments"));
    qputenv("TARNWICK_ARGUMENTS_FILE", file.toLocal8Bit());
    const auto commands = openBy::commands(QStringLiteral(TARNWICK_ARGUMENTS), parameter, urls, false);
    QVERIFY(DesktopShell().start(commands.first()));
    QTRY_VERIFY_WITH_TIMEOUT(contentOf(file).endsWith("end\n"), 20'000);
    QCOMPARE(contentOf(file), arguments + "\nend\n");
    QVERIFY(!DesktopShell().start({ folder.filePath(QStringLiteral("none")), {} }));
}

void tst_OpenBy::startsFromTheDialog()
{
    QVERIFY(!control<QWidget>(*m_dialog, "b_ok").isEnabled());
    m_dialogs.choice = QStringLiteral("/usr/bin/player");
    click(*m_dialog, "b_programmAussuchen");
    QCOMPARE(m_dialogs.requests.value(0).types.value(0).label, m_language.text("lang.filetype_executable"));
    field("parameter").setText(QStringLiteral("-x "));
    confirm({ "http://h/1", "http://h/2" });
    QVERIFY(!m_dialog->isVisible());
    QTRY_COMPARE(m_shell.started.size(), 2);
    QCOMPARE(m_shell.started.last().arguments, QStringLiteral("-x http://h/2"));
    QCOMPARE(QDir::fromNativeSeparators(m_shell.started.last().program), m_dialogs.choice);
    control<QCheckBox>(*m_dialog, "c_oneInstance").setChecked(true);
    confirm({ "http://h/1", "http://h/2" });
    QCOMPARE(m_shell.started.value(2).arguments, QStringLiteral("-x  http://h/1 http://h/2"));
    confirm({});
    QCOMPARE(m_shell.started.size(), 3);
    QVERIFY(m_messages.told.isEmpty());
}

void tst_OpenBy::staysWhenNothingStarts()
{
    m_shell.opens = false;
    field("programmPfad").setText(QStringLiteral("none"));
    confirm({ "http://h/1", "http://h/2" });
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_shell.started.size(), 1);
    QCOMPARE(m_messages.told.size(), 1);
    QCOMPARE(m_messages.told.first().text, m_language.text("lang.errWhileExe") + QStringLiteral("\nnone"));
}

void tst_OpenBy::asksBeforeManyPrograms()
{
    field("programmPfad").setText(QStringLiteral("p"));
    m_messages.answer = false;
    confirm(Urls(21, "http://h/"));
    QVERIFY(m_shell.started.isEmpty());
    m_messages.answer = true;
    confirm(Urls(21, "http://h/"));
    QTRY_COMPARE(m_shell.started.size(), 21);
    QCOMPARE(m_messages.asked.size(), 2);
    QVERIFY(m_messages.returnIsHarmless());
    confirm(Urls(20, "http://h/"));
    QCOMPARE(m_messages.asked.size(), 2);
}

QTEST_MAIN(tst_OpenBy)

#include "tst_OpenBy.moc"
