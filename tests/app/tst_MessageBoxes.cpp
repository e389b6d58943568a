// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MessageBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>

/// The boxes as they are on the screen.
class tst_MessageBoxes : public QObject {
    Q_OBJECT

private slots:
    void oneAfterTheOther();
    void aClosingDialogTakesNoBoxWithIt();
    void aBoxThatIsTakenAwayAnswersNo();

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
    boxes.tell({ Messages::Sign::Warning, QStringLiteral("T"), QStringLiteral("<b>one</b>") },
        [&] { answers += QStringLiteral("closed"); });
    boxes.ask({ Messages::Sign::Question, QStringLiteral("Q"), QStringLiteral("two") },
        [&](bool yes) { answers += yes ? QStringLiteral("yes") : QStringLiteral("no"); });
    QTRY_VERIFY(shown());
    QCOMPARE(shown()->text(), QStringLiteral("<b>one</b>"));
    QCOMPARE(shown()->textFormat(), Qt::PlainText);
    shown()->button(QMessageBox::Ok)->click();
    QTRY_VERIFY(shown() && shown()->text() == QLatin1String("two"));
    // Modal to the window also when the first one has just gone.
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

QTEST_MAIN(tst_MessageBoxes)

#include "tst_MessageBoxes.moc"
