// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/zahlenEingabe.h"

#include "base/LetterNumbers.h"

#include <QLineEdit>

#include <algorithm>

namespace {

letterNumbers::Letters lettersOf(zahlenEingabe::Notation notation)
{
    return notation == zahlenEingabe::Notation::SmallLetters ? letterNumbers::Letters::Small
                                                             : letterNumbers::Letters::Capital;
}

} // namespace

zahlenEingabe::zahlenEingabe(QWidget* parent)
    : QDoubleSpinBox(parent)
{
    setAlignment(Qt::AlignRight);
    setAccelerated(true);
    setDecimals(0);
    connect(this, &QDoubleSpinBox::valueChanged, this, [this] { emit changed(value()); });
}

void zahlenEingabe::init(qint64 min, qint64 max, qint64 value)
{
    setRange(static_cast<double>(min), static_cast<double>(max));
    // The base class measures its texts once. A new prefix, even the same, makes it measure those of the new bounds.
    setPrefix(prefix());
    setValue(value);
}

qint64 zahlenEingabe::value() const
{
    return static_cast<qint64>(QDoubleSpinBox::value());
}

void zahlenEingabe::setValue(qint64 value)
{
    QDoubleSpinBox::setValue(static_cast<double>(value));
}

qint64 zahlenEingabe::max() const
{
    return static_cast<qint64>(maximum());
}

void zahlenEingabe::setnumerischeAnzeigeModus(Notation notation)
{
    const double number = QDoubleSpinBox::value();
    m_notation = notation;
    lineEdit()->setText(textFromValue(number));
}

QString zahlenEingabe::textFromValue(double value) const
{
    return m_notation == Notation::Digits
        ? QString::number(static_cast<qint64>(value))
        : QString::fromLatin1(letterNumbers::text(static_cast<qint32>(value), lettersOf(m_notation)));
}

double zahlenEingabe::valueFromText(const QString& text) const
{
    return static_cast<double>(numberFrom(text).value_or(0));
}

std::optional<qint64> zahlenEingabe::numberFrom(const QString& text) const
{
    if (m_notation != Notation::Digits) {
        const qint32 number = letterNumbers::number(text.toLatin1(), lettersOf(m_notation));
        // The empty text stands for 0; any other text that reads as 0 is no number.
        return number == 0 && !text.isEmpty() ? std::nullopt : std::optional<qint64>(number);
    }
    bool isNumber = std::all_of(text.begin(), text.end(), [](QChar c) { return u'0' <= c && c <= u'9'; });
    const qint64 number = isNumber ? text.toLongLong(&isNumber) : 0;
    return isNumber ? std::optional(number) : std::nullopt;
}

QValidator::State zahlenEingabe::validate(QString& input, int&) const
{
    if (m_notation == Notation::SmallLetters)
        input = input.toLower();
    else if (m_notation == Notation::CapitalLetters)
        input = input.toUpper();
    else if (input.isEmpty())
        return QValidator::Intermediate;
    const auto number = numberFrom(input);
    if (!number || *number > max())
        return QValidator::Invalid;
    return static_cast<double>(*number) < minimum() ? QValidator::Intermediate : QValidator::Acceptable;
}
