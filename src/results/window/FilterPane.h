// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/window/MimeModel.h"

#include <QGroupBox>
#include <QTimer>

#include <memory>

class QButtonGroup;
class QCheckBox;
class zahlenEingabe;
enum class FilterSwitch;
struct FilterRange;
struct ResultFilter;

namespace Ui {
class FilterPane;
}

/// The controls of the result filter. They change the filter at once and tell so by `filterChanged`.
class FilterPane final : public QGroupBox {
    Q_OBJECT

public:
    /// `filter` must outlive the pane.
    FilterPane(ResultFilter& filter, QWidget* parent);
    ~FilterPane() override;

    [[nodiscard]] MimeModel& mimeTypes() { return m_mimeModel; }
    /// Shows the filter's settings. Call it when the filter was changed elsewhere.
    void showFilter();
    /// Shows the chosen branch, with a button that lifts it.
    void showBranch();
    /// Takes bounds that are still being typed into the filter. Call it before the filter is saved.
    void takeBounds();
    /// Shows how many rows pass the filter.
    void setShownCount(int rows);
    /// The unit of the size bounds.
    void setSizeUnit(qint64 bytes, const QString& name);

signals:
    /// The user has changed the filter.
    void filterChanged();
    void applyClicked();
    void closeClicked();

private:
    void wire();
    void wireSwitch(const QButtonGroup& buttons, FilterSwitch& chosen);
    void wireRange(QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max, FilterRange& range);
    static void showRange(const FilterRange& range, QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max);
    /// Reads the bounds into the filter; false if they have not changed.
    bool readBounds();
    void change();
    void enableControls();
    void liftBranch();
    void reset();
    void addPart();
    void addRow(const QByteArray& part);
    void removeParts();
    void takeParts();

    ResultFilter& m_filter;
    MimeModel m_mimeModel;
    bool m_isShowing = false; ///< controls change because they are to show the filter
    QTimer m_typingPause; ///< runs while a bound is being typed
    QButtonGroup* m_mimeSwitch = nullptr; ///< with the values of `FilterSwitch` for ids
    QButtonGroup* m_urlSwitch = nullptr;
    std::unique_ptr<Ui::FilterPane> m_ui;
};
