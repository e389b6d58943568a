// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Seams.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Registry.h"
#include "base/Shell.h"
#include "base/UrlPicker.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <QUrl>

/// Message boxes that a test answers beforehand and reads afterwards.
struct AnsweredMessages final : Messages {
    QList<Box> told;
    QList<Box> asked;
    bool answer = true;
    QStringList typed; ///< into the input boxes, one after the other

    /// Of a box that was told, and of one that was asked; empty if there was none.
    [[nodiscard]] QByteArray toldText(qsizetype box = 0) const { return told.value(box).text.toUtf8(); }
    [[nodiscard]] QByteArray askedText(qsizetype box = 0) const { return asked.value(box).text.toUtf8(); }

    using Messages::tell;
    void tell(const Box& box, std::function<void()> closed) override
    {
        told += box;
        closed();
    }
    void ask(const Box& box, std::function<void(bool yes)> answered) override
    {
        asked += box;
        answered(answer);
    }
    void input(const QString& title, const QString&, const QString& text,
        std::function<void(const QString& typed)> answered) override
    {
        told += { Sign::Question, title, text };
        answered(typed.isEmpty() ? QString() : typed.takeFirst());
    }
};

/// File dialogs in which a test has chosen beforehand; cancelled while `choice` is empty.
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

/// A desktop that only remembers what it was asked.
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

/// A registry whose values a test has set, by their names.
struct FilledRegistry final : Registry {
    QHash<QString, QString> values;

    [[nodiscard]] std::optional<QString> text(const QString&, const QString& name) const override
    {
        const auto found = values.constFind(name);
        return found == values.cend() ? std::nullopt : std::optional(*found);
    }
};

/// A picker in which the user takes `choice`, or cancels while it is empty.
struct AnsweredPicker final : UrlPicker {
    QByteArray choice;

    [[nodiscard]] const char* obstacle() const override { return nullptr; }
    void pickUrl(const QByteArray&, std::function<void(const QByteArray& url)> picked) override
    {
        if (!choice.isEmpty())
            picked(choice);
    }
};

/// All of them, for what drives the main window to inherit.
class AnsweredSeams {
protected:
    [[nodiscard]] Seams seams() { return { m_messages, m_dialogs, m_shell, m_picker, m_registry }; }

    AnsweredMessages m_messages;
    AnsweredFileDialogs m_dialogs;
    RecordingShell m_shell;
    AnsweredPicker m_picker;
    FilledRegistry m_registry;
};
