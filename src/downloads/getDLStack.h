// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/NumberedUrls.h"

#include <QDialog>
#include <QQueue>
#include <QTimer>

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
    /// A run of which a part is on the list.
    struct Adding {
        NumberedUrls run;
        qint64 next = 0; ///< the index that comes next
        QByteArray referer;
    };

    void wire();
    void applyCaptions();
    /// The run as the controls have it; the URL as it is typed.
    [[nodiscard]] NumberedUrls run() const;
    void showType();
    void showExamples();
    void confirm();
    void add(const NumberedUrls& run);
    /// Adds a part of the run, and leaves the rest to the next pass of the event loop.
    void addSome();

    DownloadQueue& m_queue;
    const LanguageTable& m_language;
    Messages& m_messages;
    UrlPicker& m_picker;
    std::unique_ptr<Ui::getDLStack> m_ui;
    QQueue<Adding> m_adding;
    QTimer m_addSome;
};
