// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "downloads/NumberedUrls.h"

#include <QDialog>

#include <memory>

class DownloadQueue;
class LanguageTable;
class Messages;
class UrlPicker;

namespace Ui {
class getDLStack;
}

/// The dialog that turns one URL into a run of numbered downloads.
class getDLStack final : public QDialog {
    Q_OBJECT

public:
    /// All of them must outlive the dialog.
    getDLStack(
        DownloadQueue& queue, const LanguageTable& language, Messages& messages, UrlPicker& picker, QWidget* parent);
    ~getDLStack() override;

signals:
    /// The run is on its way to the download list, or all there.
    void confirmed();

private:
    void wire();
    void applyCaptions();
    /// The run as the controls have it; the URL as it is typed.
    [[nodiscard]] NumberedUrls run() const;
    void showType();
    void showExamples();
    void confirm();
    void add(const NumberedUrls& run);

    DownloadQueue& m_queue;
    const LanguageTable& m_language;
    Messages& m_messages;
    UrlPicker& m_picker;
    std::unique_ptr<Ui::getDLStack> m_ui;
    StepQueue m_adding; ///< of runs to the list
};
