// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <cstdio>

/// The terminal that the console program runs in, as far as operating systems differ.
namespace terminal {

/// Makes standard output take bytes unchanged, and the terminal obey the codes that move the cursor. Only Windows needs
/// to be told.
void prepare();
/// Whether the stream goes to a terminal.
[[nodiscard]] bool isTerminal(std::FILE* stream);
/// The width of the terminal of standard error in columns; 80 when it is unknown.
[[nodiscard]] int columns();
/// `text` with "?" in the place of every character that a terminal would act on instead of showing it.
[[nodiscard]] QString printable(QString text);

/// Reports the first interruption of the program: Ctrl+C, or the system's request to end. The second one ends the
/// program at once. A program has at most one watch.
class InterruptWatch final : public QObject {
    Q_OBJECT

public:
    explicit InterruptWatch(QObject* parent = nullptr);
    ~InterruptWatch() override;

signals:
    void interrupted();
};

} // namespace terminal
