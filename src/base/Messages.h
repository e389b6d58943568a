// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <utility>

/// Message boxes. They do not block: the function that is passed along is called once, when the box is closed.
class Messages {
public:
    enum class Sign { Information, Question, Warning };

    struct Box {
        Sign sign = Sign::Information;
        QString title;
        QString text;
    };

    enum class Answer { Ok, Yes, No, Save, Discard, Cancel };

    /// The buttons of a question.
    struct Choices {
        QList<Answer> answers; ///< in order; the first two are the positive and the negative one
        Answer usual; ///< the default button, which Return presses
        Answer harmless; ///< what Escape and the close button count as: the answer that changes nothing
    };

    virtual ~Messages() = default;

    /// A box that can only be closed.
    virtual void tell(const Box& box, std::function<void()> closed) = 0;
    void tell(const Box& box)
    {
        tell(box, [] {});
    }
    virtual void ask(const Box& box, const Choices& choices, std::function<void(Answer answer)> answered) = 0;
    /// A box with Yes and No; Return means Yes, closing it means No.
    void ask(const Box& box, std::function<void(bool yes)> answered)
    {
        ask(box, { { Answer::Yes, Answer::No }, Answer::Yes, Answer::No },
            [answered = std::move(answered)](Answer answer) { answered(answer == Answer::Yes); });
    }
    /// A question before many things are opened, deleted or replaced. Only a click on Yes confirms it: Return means No,
    /// so that a key that is pressed twice does no harm.
    void confirm(const Box& box, std::function<void()> confirmed)
    {
        ask(box, { { Answer::Yes, Answer::No }, Answer::No, Answer::No },
            [confirmed = std::move(confirmed)](Answer answer) {
                if (answer == Answer::Yes)
                    confirmed();
            });
    }
    /// A box in which a text is typed, `text` at first. Cancelling it answers with an empty text.
    virtual void input(const QString& title, const QString& prompt, const QString& text,
        std::function<void(const QString& typed)> answered) = 0;
};
