// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/zahlenEingabe.h"

#include "base/LetterNumbers.h"

#include <QLineEdit>

namespace {

letterNumbers::Letters lettersOf(zahlenEingabe::Anzeige mode)
{
    return mode == zahlenEingabe::Anzeige::SmallLetters ? letterNumbers::Letters::Small
                                                        : letterNumbers::Letters::Capital;
}

} // namespace

zahlenEingabe::zahlenEingabe(QWidget* parent)
    : QSpinBox(parent)
{
    setAlignment(Qt::AlignRight);
    setAccelerated(true);
}

void zahlenEingabe::init(int min, int max, int value)
{
    setRange(min, max);
    setValue(value);
}

void zahlenEingabe::setnumerischeAnzeigeModus(Anzeige mode)
{
    const int number = value();
    m_mode = mode;
    // A range that is set anew shows the value anew.
    setRange(minimum(), maximum());
    setValue(number);
    lineEdit()->setText(textFromValue(number));
}

QString zahlenEingabe::textFromValue(int value) const
{
    return m_mode == Anzeige::Digits ? QSpinBox::textFromValue(value)
                                     : QString::fromLatin1(letterNumbers::text(value, lettersOf(m_mode)));
}

int zahlenEingabe::valueFromText(const QString& text) const
{
    return m_mode == Anzeige::Digits ? QSpinBox::valueFromText(text)
                                     : letterNumbers::number(text.toLatin1(), lettersOf(m_mode));
}

QValidator::State zahlenEingabe::validate(QString& input, int& pos) const
{
    if (m_mode == Anzeige::Digits)
        return QSpinBox::validate(input, pos);
    input = m_mode == Anzeige::SmallLetters ? input.toLower() : input.toUpper();
    const int number = valueFromText(input);
    // Nothing typed is 0; a text that is no number would read as 0 as well.
    if (number == 0 && !input.isEmpty())
        return QValidator::Invalid;
    return minimum() <= number && number <= maximum() ? QValidator::Acceptable : QValidator::Intermediate;
}
