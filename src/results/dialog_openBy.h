// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "results/OpenBy.h"

#include <QDialog>

#include <functional>
#include <memory>

class FileDialogs;
class LanguageTable;
class Messages;
class Shell;

namespace Ui {
class dialog_openBy;
}

/// The window in which a program is chosen that is started on the URLs of rows. Its fields keep what was typed.
class dialog_openBy final : public QDialog {
    Q_OBJECT

public:
    /// All of them must outlive the window.
    dialog_openBy(
        const LanguageTable& language, Messages& messages, FileDialogs& fileDialogs, Shell& shell, QWidget* parent);
    ~dialog_openBy() override;

    /// Shows the window. `urls` gives those that are to be opened when the user confirms.
    void run(std::function<QList<QByteArray>()> urls);

private:
    void chooseProgram();
    void confirm();
    void startAll(const QList<ProgramCommand>& commands);
    [[nodiscard]] bool start(const ProgramCommand& command);
    [[nodiscard]] QString text(const char* key) const;

    const LanguageTable& m_language;
    Messages& m_messages;
    FileDialogs& m_fileDialogs;
    Shell& m_shell;
    std::function<QList<QByteArray>()> m_urls;
    StepQueue m_starting;
    std::unique_ptr<Ui::dialog_openBy> m_ui;
};
