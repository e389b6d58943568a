// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDoubleSpinBox>

#include <optional>

/// The control in which whole numbers are entered: a text field with spin arrows. It shows a number in digits, or in
/// the letters that numbered downloads count with.
///
/// The base class keeps the number as a double, which is exact up to 2^53; a QSpinBox ends at 2^31.
class zahlenEingabe final : public QDoubleSpinBox {
    Q_OBJECT

public:
    enum class Notation { Digits, CapitalLetters, SmallLetters };

    explicit zahlenEingabe(QWidget* parent = nullptr);

    /// Sets the bounds, both included, and the value, which is moved inside them. No number may exceed 2^53.
    void init(qint64 min, qint64 max, qint64 value);
    [[nodiscard]] qint64 value() const;
    void setValue(qint64 value);
    /// The greatest number that can be entered.
    [[nodiscard]] qint64 max() const;
    /// How the value is shown and typed. The value stays the same.
    void setnumerischeAnzeigeModus(Notation notation);
    /// The value as shown.
    [[nodiscard]] QString getTextWert() const { return cleanText(); }

signals:
    /// The value has changed, also by a single typed digit.
    void changed(qint64 value);

protected:
    [[nodiscard]] QString textFromValue(double value) const override;
    [[nodiscard]] double valueFromText(const QString& text) const override;
    [[nodiscard]] QValidator::State validate(QString& input, int& pos) const override;

private:
    /// nullopt for a text that is no number in this notation.
    [[nodiscard]] std::optional<qint64> numberFrom(const QString& text) const;

    Notation m_notation = Notation::Digits;
};
