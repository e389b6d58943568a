// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FileDialogBoxes.h"
#include "base/lang.h"
#include "support/Table.h"
#include "support/TestSeams.h"
#include "support/Text.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

/// Types names into the dialogs on the screen.
class tst_FileDialogBoxes : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void addsTheExtensionOfTheFormat_data();
    void addsTheExtensionOfTheFormat();
    void asksBeforeItReplacesAFile();

private:
    [[nodiscard]] static QFileDialog* shown() { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); }
    /// Types a path into the dialog that is shown, and presses Return.
    static void type(const QString& path);

    LanguageTable m_language;
    FileDialogBoxes m_boxes { m_language, m_messages };
    QTemporaryDir m_folder;
    FileDialogs::Request m_request { QStringLiteral("Save"),
        { { QStringLiteral("Searches"), QStringLiteral("*.twk") } }, {}, QStringLiteral("twk") };
};

void tst_FileDialogBoxes::type(const QString& path)
{
    auto* const field = shown()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    field->setText(path);
    QTest::keyClick(field, Qt::Key_Return);
}

void tst_FileDialogBoxes::addsTheExtensionOfTheFormat_data()
{
    const auto row = table<QString, QString>("typed", "chosen");
    row("a bare name", QStringLiteral("search"), QStringLiteral("search.twk"));
    row("another extension", QStringLiteral("my.search"), QStringLiteral("my.search.twk"));
    row("the extension", QStringLiteral("a.twk"), QStringLiteral("a.twk"));
    row("in capitals", QStringLiteral("a.TWK"), QStringLiteral("a.TWK.twk"));
    row("letters of no code page", QStringLiteral("\u65e5\u672c.1"), QStringLiteral("\u65e5\u672c.1.twk"));
}

void tst_FileDialogBoxes::addsTheExtensionOfTheFormat()
{
    QFETCH(QString, typed);
    QString chosen;
    m_boxes.save(m_request, [&](const QString& path) { chosen = path; });
    QTRY_VERIFY(shown());
    type(m_folder.filePath(typed));
    QTRY_VERIFY(!shown());
    QTEST(QFileInfo(chosen).fileName(), "chosen");
}

void tst_FileDialogBoxes::asksBeforeItReplacesAFile()
{
    QVERIFY(writeFile(m_folder.filePath(QStringLiteral("old.1.twk")), "kept"));
    QString chosen;
    m_messages.answer = false;
    m_boxes.save(m_request, [&](const QString& path) { chosen = path; });
    QTRY_VERIFY(shown());
    type(m_folder.filePath(QStringLiteral("old.1")));
    QTRY_COMPARE(m_messages.asked.size(), 1);
    QVERIFY(m_messages.askedText().contains("old.1.twk"));
    QVERIFY(m_messages.returnIsHarmless());
    QCOMPARE(chosen, QString());

    // The dialog is there again, with the name.
    QTRY_VERIFY(shown() && shown()->selectedFiles().value(0).endsWith(QLatin1String("old.1.twk")));
    m_messages.answer = true;
    type(m_folder.filePath(QStringLiteral("old.1")));
    QTRY_VERIFY(chosen.endsWith(QLatin1String("/old.1.twk")));
    QCOMPARE(m_messages.asked.size(), 2);
}

QTEST_MAIN(tst_FileDialogBoxes)

#include "tst_FileDialogBoxes.moc"
