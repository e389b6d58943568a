// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/getDLStack.h"

#include "base/Captions.h"
#include "base/Messages.h"
#include "base/UrlPicker.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "ui_getDLStack.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int exampleCount = 4;
/// Of a longer run the user is asked whether it is meant.
constexpr qint64 manyDownloads = 100'000;

struct TypeButton {
    QRadioButton* Ui::getDLStack::*button;
    IndexType type;
    zahlenEingabe::Anzeige bounds; ///< how the bounds are shown and typed
};
constexpr std::array typeButtons {
    TypeButton { &Ui::getDLStack::r_indexType_2, IndexType::Decimal, zahlenEingabe::Anzeige::Digits },
    TypeButton { &Ui::getDLStack::r_indexType_3, IndexType::Hexadecimal, zahlenEingabe::Anzeige::Digits },
    TypeButton { &Ui::getDLStack::r_indexType_4, IndexType::CapitalLetters, zahlenEingabe::Anzeige::CapitalLetters },
    TypeButton { &Ui::getDLStack::r_indexType_5, IndexType::SmallLetters, zahlenEingabe::Anzeige::SmallLetters },
};

/// How many characters of the completed URL stand before a place in what was typed.
int placeInUrl(const QString& typed, int place)
{
    const auto begin = std::find_if(typed.begin(), typed.end(), [](QChar character) { return !character.isSpace(); });
    const int blanks = static_cast<int>(begin - typed.begin());
    const int added = typed.trimmed().startsWith(QLatin1String("http://")) ? 0 : 7;
    return qMax(0, place - blanks) + added;
}

} // namespace

getDLStack::getDLStack(
    DownloadQueue& queue, const LanguageTable& language, Messages& messages, UrlPicker& picker, QWidget* parent)
    : QDialog(parent)
    , m_queue(queue)
    , m_language(language)
    , m_messages(messages)
    , m_picker(picker)
    , m_ui(std::make_unique<Ui::getDLStack>())
{
    m_ui->setupUi(this);
    captions::nameArrays(*this);
    m_ui->Pos->init(0, std::numeric_limits<int>::max(), 7);
    m_ui->min->init(0, std::numeric_limits<int>::max(), 1);
    m_ui->max->init(0, std::numeric_limits<int>::max(), 10);
    m_ui->minStellen->init(1, 20, 1);
    m_ui->beispiele->setMaximumHeight((exampleCount + 2) * fontMetrics().height());
    wire();
    applyCaptions();
    showType();
}

getDLStack::~getDLStack() = default;

void getDLStack::wire()
{
    connect(&m_language, &LanguageTable::changed, this, &getDLStack::applyCaptions);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &getDLStack::confirm);
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->startUrl, &QLineEdit::textChanged, this, &getDLStack::showExamples);
    for (const QSpinBox* const input : { m_ui->Pos, m_ui->min, m_ui->max, m_ui->minStellen })
        connect(input, &QSpinBox::valueChanged, this, &getDLStack::showExamples);
    for (const TypeButton& entry : typeButtons)
        connect((*m_ui).*entry.button, &QRadioButton::clicked, this, &getDLStack::showType);
    connect(m_ui->editUrl, &QToolButton::clicked, this, [this] {
        m_picker.pickUrl(allgemein::toSystem(m_ui->startUrl->text()),
            [this](const QByteArray& url) { m_ui->startUrl->setText(allgemein::fromSystem(url)); });
    });
    // The index goes where the cursor was last.
    connect(m_ui->startUrl, &QLineEdit::cursorPositionChanged, this, [this](int, int place) {
        if (m_ui->startUrl->hasFocus())
            m_ui->Pos->setValue(placeInUrl(m_ui->startUrl->text(), place));
    });
}

void getDLStack::applyCaptions()
{
    captions::apply(*this, m_language);
    const char* const obstacle = m_picker.obstacle();
    if (!obstacle)
        return;
    m_ui->editUrl->setEnabled(false);
    m_ui->editUrl->setToolTip(m_language.text(obstacle));
}

NumberedUrls getDLStack::run() const
{
    NumberedUrls run;
    run.startUrl = allgemein::toSystem(m_ui->startUrl->text().trimmed());
    run.pos = m_ui->Pos->value();
    run.min = m_ui->min->value();
    run.max = m_ui->max->value();
    run.minStellen = m_ui->minStellen->value();
    for (const TypeButton& entry : typeButtons) {
        if (((*m_ui).*entry.button)->isChecked())
            run.type = entry.type;
    }
    return run;
}

void getDLStack::showType()
{
    for (const TypeButton& entry : typeButtons) {
        if (!((*m_ui).*entry.button)->isChecked())
            continue;
        m_ui->min->setnumerischeAnzeigeModus(entry.bounds);
        m_ui->max->setnumerischeAnzeigeModus(entry.bounds);
        m_ui->minStellen->setEnabled(entry.type == IndexType::Decimal);
    }
    showExamples();
}

void getDLStack::showExamples()
{
    m_ui->beispiele->clear();
    NumberedUrls examples = run();
    if (!examples.confirm())
        return;
    const qint64 last = qMin(qint64 { examples.max }, qint64 { examples.min } + exampleCount - 1);
    for (qint64 index = examples.min; index <= last; ++index)
        m_ui->beispiele->addItem(allgemein::fromSystem(examples.urlFor(static_cast<qint32>(index))));
}

void getDLStack::confirm()
{
    NumberedUrls confirmed = run();
    if (!confirmed.confirm()) {
        m_messages.tell(
            { Messages::Sign::Warning, m_language.text("lang.userFailure"), m_language.text("lang.invalidStartUrl") },
            [field = QPointer(m_ui->startUrl)] {
                if (field)
                    field->setFocus();
            });
        return;
    }
    const qint64 count = qint64 { confirmed.max } - confirmed.min + 1;
    if (count <= manyDownloads) {
        add(confirmed);
        return;
    }
    m_messages.ask({ Messages::Sign::Question, m_language.text("lang.question"),
                       m_language.text("more.manyDownloads").arg(count) },
        [self = QPointer(this), confirmed](bool yes) {
            if (self && yes)
                self->add(confirmed);
        });
}

void getDLStack::add(const NumberedUrls& run)
{
    hide();
    const QByteArray referer = allgemein::toSystem(m_ui->quellUrl->text().trimmed());
    m_adding.add([this, run, referer, next = qint64 { run.min }]() mutable {
        if (next <= run.max)
            m_queue.addDL(run.urlFor(static_cast<qint32>(next++)), -1, referer);
        return next <= run.max;
    });
    emit confirmed();
}
