// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QMessageBox>
#include <QPointer>
#include <QQueue>

/// Message boxes on the screen, one after the other, over the window in which the user is.
class MessageBoxes final : public QObject, public Messages {
    Q_OBJECT

public:
    using Messages::tell;
    void tell(const Box& box, std::function<void()> closed) override;
    void ask(const Box& box, std::function<void(bool yes)> answered) override;
    void input(const QString& title, const QString& prompt, const QString& text,
        std::function<void(const QString& typed)> answered) override;

private:
    struct Waiting {
        Box box;
        QMessageBox::StandardButtons buttons;
        std::function<void(bool yes)> answered;
    };

    void enqueue(Waiting waiting);
    void showNext();
    void finish(const Waiting& waiting, bool yes);
    /// The window over which a box stands: one that stays, unlike a file dialog that is just closing.
    [[nodiscard]] QWidget* parentWindow();

    QQueue<Waiting> m_waiting;
    bool m_isShowing = false;
    QPointer<QWidget> m_parent; ///< of the last box
};
