// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "base/StepQueue.h"
#include "results/OpenBy.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class dialog_openBy;
}

/// The dialog that opens the URLs of rows with a program of the user's choice. Its fields keep their texts while the
/// program runs.
class dialog_openBy final : public QDialog {
    Q_OBJECT

public:
    dialog_openBy(const Seams& seams, QWidget* parent);
    ~dialog_openBy() override;

    /// Shows the dialog. `urls` is called when the user confirms.
    void run(std::function<QList<QByteArray>()> urls);

private:
    void chooseProgram();
    void confirm();
    void startAll(const QList<ProgramCommand>& commands);
    [[nodiscard]] bool start(const ProgramCommand& command);

    Seams m_seams;
    std::function<QList<QByteArray>()> m_urls;
    StepQueue m_starting;
    std::unique_ptr<Ui::dialog_openBy> m_ui;
};
