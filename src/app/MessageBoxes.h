// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QMessageBox>
#include <QPointer>
#include <QQueue>

/// Message boxes on the screen, one after the other, over the active window.
class MessageBoxes final : public QObject, public Messages {
    Q_OBJECT

public:
    using Messages::tell;
    void tell(const Box& box, std::function<void()> closed) override;
    using Messages::ask;
    void ask(const Box& box, const Choices& choices, std::function<void(Answer answer)> answered) override;
    void input(const QString& title, const QString& prompt, const QString& text,
        std::function<void(const QString& typed)> answered) override;

private:
    struct Waiting {
        Box box;
        Choices choices;
        std::function<void(Answer answer)> answered;
    };

    void enqueue(Waiting waiting);
    void showNext();
    void finish(const Waiting& waiting, Answer answer);
    /// The window over which the next box opens. Never one that deletes itself when it closes, such as a file dialog:
    /// the box would go with it.
    [[nodiscard]] QWidget* parentWindow();

    QQueue<Waiting> m_waiting;
    bool m_isShowing = false;
    QPointer<QWidget> m_parent; ///< parent of the last box
};
