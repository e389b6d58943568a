// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/MimeModel.h"

#include <QGroupBox>

#include <memory>

class QCheckBox;
class zahlenEingabe;
struct FilterRange;
struct ResultFilter;

namespace Ui {
class FilterPane;
}

/// The controls of the result filter. They change the filter that the pane is given, at once; whoever shows the results
/// is told of it.
class FilterPane final : public QGroupBox {
    Q_OBJECT

public:
    /// `filter` must outlive the pane.
    FilterPane(ResultFilter& filter, QWidget* parent);
    ~FilterPane() override;

    [[nodiscard]] MimeModel& mimeTypes() { return m_mimeModel; }
    /// Shows the filter's settings, which others have changed.
    void showFilter();
    /// Shows how many rows pass the filter.
    void setShownCount(int rows);
    /// The unit of the size bounds.
    void setSizeUnit(qint64 bytes, const QString& name);

signals:
    /// The filter is another now.
    void filterChanged();
    void applyClicked();
    void closeClicked();

private:
    void wire();
    void wireRange(QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max, FilterRange& range);
    void enableControls();
    void addPart();
    void removeParts();
    void takeParts();

    ResultFilter& m_filter;
    MimeModel m_mimeModel;
    std::unique_ptr<Ui::FilterPane> m_ui;
};
