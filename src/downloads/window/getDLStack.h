// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "base/StepQueue.h"
#include "downloads/NumberedUrls.h"

#include <QDialog>

#include <memory>

class DownloadQueue;
class QButtonGroup;

namespace Ui {
class getDLStack;
}

/// The dialog that adds a run of numbered URLs to the download list.
class getDLStack final : public QDialog {
    Q_OBJECT

public:
    /// `queue` must outlive the dialog.
    getDLStack(DownloadQueue& queue, const Seams& seams, QWidget* parent);
    ~getDLStack() override;

signals:
    /// The user has confirmed a run. A long one is still being added.
    void confirmed();

private:
    void wire();
    void applyCaptions();
    /// The run that the controls describe, with the URL as it was typed.
    [[nodiscard]] NumberedUrls run() const;
    void showType();
    void showExamples();
    void confirm();
    /// Says why the run cannot be added, then moves the focus to the field that must change.
    void refuse(const char* reason, QWidget* field);
    /// Adds the run. Before a very long one the user is asked.
    void addIfMeant(const NumberedUrls& confirmed);
    void add(const NumberedUrls& run);

    DownloadQueue& m_queue;
    Seams m_seams;
    QButtonGroup* m_typeButtons = nullptr; ///< with the values of `IndexType` for ids
    std::unique_ptr<Ui::getDLStack> m_ui;
    StepQueue m_adding; ///< adds runs to the download list
};
