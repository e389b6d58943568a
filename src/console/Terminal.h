// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <cstdio>

/// What the console program needs to know of the terminal that it runs in.
namespace terminal {

/// Has standard output take bytes as they are, and the terminal understand what moves the cursor, where neither goes
/// without saying.
void prepare();
/// Whether the stream is shown to a person.
[[nodiscard]] bool isTerminal(std::FILE* stream);
/// The width of the terminal of standard error in columns; 80 when the system does not tell.
[[nodiscard]] int columns();
/// `text` with every character that a terminal would act on, instead of showing it, made a "?".
[[nodiscard]] QString printable(QString text);

/// Tells when the user interrupts the program (Ctrl+C, or the system asks it to end). The first time only: a second
/// interruption ends the program at once. There is at most one watch in a program.
class InterruptWatch final : public QObject {
    Q_OBJECT

public:
    explicit InterruptWatch(QObject* parent = nullptr);
    ~InterruptWatch() override;

signals:
    void interrupted();
};

} // namespace terminal
