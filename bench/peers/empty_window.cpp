// SPDX-License-Identifier: GPL-3.0-or-later
// The least that a program with a main window does at its start.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1000, 640);
    window.show();
    return QApplication::exec();
}
