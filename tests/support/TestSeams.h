// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Registry.h"
#include "base/Seams.h"
#include "base/Shell.h"
#include "base/UrlPicker.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <QUrl>

/// Message boxes that are answered at once, as a test has set; they record their texts.
struct AnsweredMessages final : Messages {
    QList<Box> told;
    QList<Box> asked;
    QList<Choices> choices; ///< of the boxes that were asked
    bool answer = true; ///< the positive or the negative answer
    bool closes = false; ///< closes questions instead of answering them
    QStringList typed; ///< the answers to the input boxes, in their order

    /// The text of a box with OK, and of a box with Yes and No; empty if there was no such box.
    [[nodiscard]] QByteArray toldText(qsizetype box = 0) const { return told.value(box).text.toUtf8(); }
    [[nodiscard]] QByteArray askedText(qsizetype box = 0) const { return asked.value(box).text.toUtf8(); }

    /// Whether Return in the last question would be the answer that changes nothing.
    [[nodiscard]] bool returnIsHarmless() const { return choices.last().usual == choices.last().harmless; }

    using Messages::tell;
    void tell(const Box& box, std::function<void()> closed) override
    {
        told += box;
        closed();
    }
    using Messages::ask;
    void ask(const Box& box, const Choices& offered, std::function<void(Answer answer)> answered) override
    {
        asked += box;
        choices += offered;
        answered(closes ? offered.harmless : offered.answers[answer ? 0 : 1]);
    }
    void input(const QString& title, const QString&, const QString& text,
        std::function<void(const QString& typed)> answered) override
    {
        told += { Sign::Question, title, text };
        answered(typed.isEmpty() ? QString() : typed.takeFirst());
    }
};

/// File dialogs that choose `choice` at once; they are cancelled while it is empty.
struct AnsweredFileDialogs final : FileDialogs {
    QString choice;
    QList<Request> requests;

    void open(const Request& request, std::function<void(const QString& path)> chosen) override
    {
        requests += request;
        if (!choice.isEmpty())
            chosen(choice);
    }
    void save(const Request& request, std::function<void(const QString& path)> chosen) override
    {
        open(request, std::move(chosen));
    }
    void folder(const QString& title, const QString& proposal, std::function<void(const QString& path)> chosen) override
    {
        open({ title, {}, proposal, {} }, std::move(chosen));
    }
};

/// A desktop that opens nothing, and records what it was asked to open.
struct RecordingShell final : Shell {
    QStringList openedFiles;
    QList<QUrl> openedUrls;
    QStringList recentDocuments;
    bool opens = true;

    QList<ProgramCommand> started;

    bool start(const ProgramCommand& command) override
    {
        started += command;
        return opens;
    }
    bool openFile(const QString& path) override
    {
        openedFiles += path;
        return opens;
    }
    bool openUrl(const QUrl& url) override
    {
        openedUrls += url;
        return opens;
    }
    void addRecentDocument(const QString& path) override { recentDocuments += path; }
};

/// A registry with values that a test sets, by their names.
struct FilledRegistry final : Registry {
    QHash<QString, QString> values;

    [[nodiscard]] std::optional<QString> text(const QString&, const QString& name) const override
    {
        const auto found = values.constFind(name);
        return found == values.cend() ? std::nullopt : std::optional(*found);
    }
};

/// A picker that picks `choice` at once; it is cancelled while that is empty.
struct AnsweredPicker final : UrlPicker {
    QByteArray choice;

    void pickUrl(const QByteArray&, std::function<void(const QByteArray& url)> picked) override
    {
        if (!choice.isEmpty())
            picked(choice);
    }
};

/// All seams with their answers; tests of windows inherit from it.
class AnsweredSeams {
protected:
    [[nodiscard]] Seams seams(const LanguageTable& language)
    {
        return { language, m_messages, m_dialogs, m_shell, m_picker, m_registry };
    }
    /// Forgets the answers and the records of the last test.
    void resetSeams()
    {
        m_messages = {};
        m_dialogs = {};
        m_shell = {};
        m_picker = {};
        m_registry = {};
    }

    AnsweredMessages m_messages;
    AnsweredFileDialogs m_dialogs;
    RecordingShell m_shell;
    AnsweredPicker m_picker;
    FilledRegistry m_registry;
};
