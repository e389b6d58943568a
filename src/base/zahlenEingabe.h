// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

/// The one control in which whole numbers are entered: a text field with spin arrows. It shows digits, or letters as
/// the numbered downloads count.
class zahlenEingabe final : public QSpinBox {
    Q_OBJECT

public:
    enum class Anzeige { Digits, CapitalLetters, SmallLetters };

    explicit zahlenEingabe(QWidget* parent = nullptr);

    /// Sets bounds, both included, and the value, which is moved inside them.
    void init(int min, int max, int value);
    /// How the value is shown and typed. It stays the same number.
    void setnumerischeAnzeigeModus(Anzeige mode);
    /// The value as shown.
    [[nodiscard]] QString getTextWert() const { return cleanText(); }

protected:
    [[nodiscard]] QString textFromValue(int value) const override;
    [[nodiscard]] int valueFromText(const QString& text) const override;
    [[nodiscard]] QValidator::State validate(QString& input, int& pos) const override;

private:
    Anzeige m_mode = Anzeige::Digits;
};
