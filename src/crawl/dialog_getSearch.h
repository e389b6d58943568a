// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class LanguageTable;
class Messages;
class QLineEdit;
class UrlPicker;
struct SearchOptions;
struct SubUrl;

namespace Ui {
class dialog_getSearch;
}

/// The window in which a search is set up. It shows the options that it is given and changes them: at the latest when
/// it is hidden, they are those of its controls.
class dialog_getSearch final : public QDialog {
    Q_OBJECT

public:
    /// All of them must outlive the window.
    dialog_getSearch(
        SearchOptions& options, const LanguageTable& language, Messages& messages, UrlPicker& picker, QWidget* parent);
    ~dialog_getSearch() override;

    /// Shows the options, which others have changed.
    void showOptions();

signals:
    /// The options are valid and the window is hidden: the search can start.
    void confirmed();

protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wire();
    void applyCaptions();
    void enableControls();
    void takeOptions();
    void confirm();
    /// Starts the search when the user has closed the notes.
    void startAfter(QStringList notes);
    void pickInto(QLineEdit* field);
    void showSubUrl(const SubUrl& entry);
    void addSubUrl();
    void deleteSubUrls();
    void offerLevels();

    SearchOptions& m_options;
    const LanguageTable& m_language;
    Messages& m_messages;
    UrlPicker& m_picker;
    bool m_isConfirming = false; ///< notes are being shown
    std::unique_ptr<Ui::dialog_getSearch> m_ui;
};
