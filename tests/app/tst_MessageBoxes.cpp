// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LibraryTexts.h"
#include "app/MessageBoxes.h"
#include "base/lang.h"
#include "support/Table.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>

/// Tests the boxes on the screen.
class tst_MessageBoxes : public QObject {
    Q_OBJECT

private slots:
    void oneAfterTheOther();
    void aClosingDialogTakesNoBoxWithIt();
    void aBoxThatIsTakenAwayAnswersNo();
    void keysGiveTheAnswer_data();
    void keysGiveTheAnswer();
    void returnConfirmsNothing();
    void buttonsSpeakTheLanguage_data();
    void buttonsSpeakTheLanguage();
    void anApplicationModalWindowBlocksNoBox();

private:
    [[nodiscard]] static QMessageBox* shown()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const box = qobject_cast<QMessageBox*>(widget);
            if (box && box->isVisible())
                return box;
        }
        return nullptr;
    }
};

void tst_MessageBoxes::oneAfterTheOther()
{
    QMainWindow window;
    window.show();
    MessageBoxes boxes;
    QStringList answers;
    boxes.tell({ Messages::Sign::Warning, QStringLiteral("T"), QStringLiteral("<b>one</b>\nx\u202Etxt.exe") },
        [&] { answers += QStringLiteral("closed"); });
    boxes.ask({ Messages::Sign::Question, QStringLiteral("Q"), QStringLiteral("two") },
        [&](bool yes) { answers += yes ? QStringLiteral("yes") : QStringLiteral("no"); });
    QTRY_VERIFY(shown());
    QCOMPARE(shown()->text(), QStringLiteral("<b>one</b>\nx%E2%80%AEtxt.exe"));
    QCOMPARE(shown()->textFormat(), Qt::PlainText);
    shown()->button(QMessageBox::Ok)->click();
    QTRY_VERIFY(shown() && shown()->text() == QLatin1String("two"));
    // The second box is modal to the window too, although the first one has only just closed.
    QCOMPARE(shown()->parentWidget(), &window);
    shown()->button(QMessageBox::Yes)->click();
    QCOMPARE(answers, (QStringList { QStringLiteral("closed"), QStringLiteral("yes") }));
    QTRY_VERIFY(!shown());
}

void tst_MessageBoxes::aClosingDialogTakesNoBoxWithIt()
{
    QMainWindow window;
    window.show();
    auto* const dialog = new QDialog(&window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    QApplication::setActiveWindow(dialog);
    MessageBoxes boxes;
    bool closed = false;
    boxes.tell({ Messages::Sign::Warning, {}, QStringLiteral("could not be saved") }, [&] { closed = true; });
    dialog->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTRY_VERIFY(shown());
    shown()->button(QMessageBox::Ok)->click();
    QVERIFY(closed);
}

void tst_MessageBoxes::aBoxThatIsTakenAwayAnswersNo()
{
    auto window = std::make_unique<QMainWindow>();
    window->show();
    MessageBoxes boxes;
    QList<bool> answers;
    boxes.ask({ Messages::Sign::Question, {}, QStringLiteral("one") }, [&](bool yes) { answers += yes; });
    QTRY_VERIFY(shown());
    window.reset();
    QCOMPARE(answers, QList<bool> { false });
    boxes.ask({ Messages::Sign::Question, {}, QStringLiteral("two") }, [&](bool yes) { answers += yes; });
    QTRY_VERIFY(shown());
    shown()->button(QMessageBox::Yes)->click();
    QCOMPARE(answers, (QList<bool> { false, true }));
}

void tst_MessageBoxes::keysGiveTheAnswer_data()
{
    using enum Messages::Answer;
    const auto row = table<Messages::Choices, int, Messages::Answer>("choices", "key", "answer");
    const Messages::Choices save { { Save, Discard, Cancel }, Save, Cancel };
    const Messages::Choices warn { { Yes, No }, Yes, Yes };
    row("Return presses the default button", save, Qt::Key_Return, Save);
    row("Escape cancels", save, Qt::Key_Escape, Cancel);
    row("Escape can mean Yes", warn, Qt::Key_Escape, Yes);
}

void tst_MessageBoxes::keysGiveTheAnswer()
{
    QFETCH(Messages::Choices, choices);
    QFETCH(int, key);
    MessageBoxes boxes;
    QList<Messages::Answer> answers;
    boxes.ask({}, choices, [&](Messages::Answer answer) { answers += answer; });
    QTRY_VERIFY(shown());
    QTest::keyClick(shown(), static_cast<Qt::Key>(key));
    QTRY_VERIFY(!shown());
    QTEST(answers.value(0), "answer");
    QCOMPARE(answers.size(), 1);
}

void tst_MessageBoxes::returnConfirmsNothing()
{
    MessageBoxes boxes;
    int confirmed = 0;
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Escape, Qt::Key_Y }) {
        boxes.confirm({}, [&] { ++confirmed; });
        QTRY_VERIFY(shown());
        if (key == Qt::Key_Y)
            shown()->button(QMessageBox::Yes)->click();
        else
            QTest::keyClick(shown(), key);
        QTRY_VERIFY(!shown());
    }
    QCOMPARE(confirmed, 1);
}

void tst_MessageBoxes::buttonsSpeakTheLanguage_data()
{
    const auto row = table<int, QString, QString>("language", "yes", "cancel");
    row("German", LanguageTable::German, QStringLiteral("Ja"), QStringLiteral("Abbrechen"));
    row("French", LanguageTable::French, QStringLiteral("Oui"), QStringLiteral("Annuler"));
    row("English", LanguageTable::English, QStringLiteral("Yes"), QStringLiteral("Cancel"));
}

void tst_MessageBoxes::buttonsSpeakTheLanguage()
{
    using enum Messages::Answer;
    QFETCH(int, language);
    LanguageTable table;
    const LibraryTexts texts(table);
    table.selectBuiltIn(LanguageTable::German);
    table.selectBuiltIn(language);
    MessageBoxes boxes;
    boxes.ask({}, { { Yes, Cancel }, Yes, Cancel }, [](Messages::Answer) {});
    QTRY_VERIFY(shown());
    const auto caption = [](QMessageBox::StandardButton button) {
        return LanguageTable::plain(shown()->button(button)->text());
    };
    QTEST(caption(QMessageBox::Yes), "yes");
    QTEST(caption(QMessageBox::Cancel), "cancel");
    shown()->button(QMessageBox::Cancel)->click();
    QTRY_VERIFY(!shown());
    QTEST(LanguageTable::plain(QFileDialog().labelText(QFileDialog::Reject)), "cancel");
}

void tst_MessageBoxes::anApplicationModalWindowBlocksNoBox()
{
    QMainWindow window;
    window.show();
    QDialog picker;
    picker.setWindowModality(Qt::ApplicationModal);
    picker.show();
    QApplication::setActiveWindow(&window); // as it is while the picker is not active yet
    MessageBoxes boxes;
    bool closed = false;
    boxes.tell({ Messages::Sign::Warning, {}, QStringLiteral("not opened") }, [&] { closed = true; });
    QTRY_VERIFY(shown());
    QCOMPARE(shown()->parentWidget(), &picker);
    QTest::keyClick(shown()->windowHandle(), Qt::Key_Escape);
    QVERIFY(closed);
}

QTEST_MAIN(tst_MessageBoxes)

#include "tst_MessageBoxes.moc"
