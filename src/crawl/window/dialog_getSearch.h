// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"

#include <QDialog>
#include <QList>

#include <memory>

class QButtonGroup;
class QCheckBox;
class QLineEdit;
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
    /// `options` must outlive the window.
    dialog_getSearch(SearchOptions& options, const Seams& seams, QWidget* parent);
    ~dialog_getSearch() override;

    /// Shows the options, which others have changed.
    void showOptions();

signals:
    /// The options are valid and the window is hidden: the search can start.
    void confirmed();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wire();
    void applyCaptions();
    void enableControls();
    void takeOptions();
    void confirm();
    /// Starts the search when the user has agreed to all notes. A note that is cancelled leaves everything as it is.
    void startAfter(QStringList notes);
    void pickInto(QLineEdit* field);
    void showSubUrl(const SubUrl& entry);
    void addSubUrl();
    /// Adds the sub-URL that is typed, if any.
    void takeTypedSubUrl();
    void deleteSubUrls();
    void offerLevels();

    SearchOptions& m_options;
    Seams m_seams;
    QButtonGroup* m_followButtons = nullptr; ///< with the values of `FollowMode` for ids
    QList<QPair<QCheckBox*, bool*>> m_analysisBoxes; ///< with the option that each one switches
    bool m_isConfirming = false; ///< notes are being shown
    std::unique_ptr<Ui::dialog_getSearch> m_ui;
};
