// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

/// Message boxes. Nothing waits for them: what is to follow is handed along and called once, when the box is closed.
class Messages {
public:
    enum class Sign { Information, Question, Warning };

    struct Box {
        Sign sign = Sign::Information;
        QString title;
        QString text;
    };

    virtual ~Messages() = default;

    /// A box that can only be closed.
    virtual void tell(const Box& box, std::function<void()> closed) = 0;
    void tell(const Box& box)
    {
        tell(box, [] {});
    }
    /// A box with Yes and No; closing it means No.
    virtual void ask(const Box& box, std::function<void(bool yes)> answered) = 0;
    /// A box in which a text is typed, `text` at first. Cancelling it answers with an empty text.
    virtual void input(const QString& title, const QString& prompt, const QString& text,
        std::function<void(const QString& typed)> answered) = 0;
};
