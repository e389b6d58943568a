// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/window/getDLStack.h"

#include "base/Messages.h"
#include "base/UrlPicker.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/OptionButtons.h"
#include "downloads/DownloadQueue.h"
#include "ui_getDLStack.h"

#include <QPointer>

#include <algorithm>
#include <limits>

namespace {

constexpr int exampleCount = 4;
/// Before a longer run is added, the user is asked.
constexpr qint64 manyDownloads = 100'000;

/// The notation of the bounds of an index in their fields.
zahlenEingabe::Notation boundsOf(IndexType type)
{
    switch (type) {
    case IndexType::CapitalLetters:
        return zahlenEingabe::Notation::CapitalLetters;
    case IndexType::SmallLetters:
        return zahlenEingabe::Notation::SmallLetters;
    case IndexType::Decimal:
    case IndexType::Hexadecimal:
        break;
    }
    return zahlenEingabe::Notation::Digits;
}

/// Turns a cursor position in the typed text into a position in the completed URL.
int placeInUrl(const QString& typed, int place)
{
    const auto begin = std::find_if(typed.begin(), typed.end(), [](QChar character) { return !character.isSpace(); });
    const int blanks = static_cast<int>(begin - typed.begin());
    const int added = typed.contains(QLatin1String("://")) ? 0 : 7;
    return qMax(0, place - blanks) + added;
}

} // namespace

getDLStack::getDLStack(DownloadQueue& queue, const Seams& seams, QWidget* parent)
    : QDialog(parent)
    , m_queue(queue)
    , m_seams(seams)
    , m_ui(std::make_unique<Ui::getDLStack>())
{
    m_ui->setupUi(this);
    m_typeButtons =
        optionButtons({ m_ui->r_indexType_2, m_ui->r_indexType_3, m_ui->r_indexType_4, m_ui->r_indexType_5 }, this, 2);
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
    connect(&m_seams.language, &LanguageTable::changed, this, &getDLStack::applyCaptions);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &getDLStack::confirm);
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->startUrl, &QLineEdit::textChanged, this, &getDLStack::showExamples);
    for (const zahlenEingabe* const input : { m_ui->Pos, m_ui->min, m_ui->max, m_ui->minStellen })
        connect(input, &zahlenEingabe::changed, this, &getDLStack::showExamples);
    connect(m_typeButtons, &QButtonGroup::idToggled, this, &getDLStack::showType);
    connect(m_ui->editUrl, &QToolButton::clicked, this, [this] {
        m_seams.urlPicker.pickUrl(allgemein::toSystem(m_ui->startUrl->text()),
            [this](const QByteArray& url) { m_ui->startUrl->setText(allgemein::editedText(url)); });
    });
    // The index goes to the last position of the cursor.
    connect(m_ui->startUrl, &QLineEdit::cursorPositionChanged, this, [this](int, int place) {
        if (m_ui->startUrl->hasFocus())
            m_ui->Pos->setValue(placeInUrl(m_ui->startUrl->text(), place));
    });
}

void getDLStack::applyCaptions()
{
    captions::apply(*this, m_seams.language);
}

NumberedUrls getDLStack::run() const
{
    NumberedUrls run;
    run.startUrl = allgemein::toSystem(m_ui->startUrl->text().trimmed());
    run.pos = static_cast<qint32>(m_ui->Pos->value());
    run.min = static_cast<qint32>(m_ui->min->value());
    run.max = static_cast<qint32>(m_ui->max->value());
    run.minStellen = static_cast<qint32>(m_ui->minStellen->value());
    run.type = static_cast<IndexType>(m_typeButtons->checkedId());
    return run;
}

void getDLStack::showType()
{
    const IndexType type = run().type;
    for (zahlenEingabe* const bound : { m_ui->min, m_ui->max })
        bound->setnumerischeAnzeigeModus(boundsOf(type));
    m_ui->minStellen->setEnabled(type == IndexType::Decimal);
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
        m_ui->beispiele->addItem(allgemein::shownText(examples.urlFor(static_cast<qint32>(index))));
}

void getDLStack::confirm()
{
    NumberedUrls confirmed = run();
    if (!confirmed.confirm())
        refuse("lang.invalidStartUrl", m_ui->startUrl);
    else if (!confirmed.isHttp())
        refuse("more.onlyHttpDownloads", m_ui->startUrl);
    else if (confirmed.max < confirmed.min)
        refuse("more.emptyRun", m_ui->max);
    else
        addIfMeant(confirmed);
}

void getDLStack::refuse(const char* reason, QWidget* field)
{
    m_seams.messages.tell(
        { Messages::Sign::Warning, m_seams.text("lang.userFailure"), m_seams.text(reason) }, [wrong = QPointer(field)] {
            if (wrong)
                wrong->setFocus();
        });
}

void getDLStack::addIfMeant(const NumberedUrls& confirmed)
{
    const qint64 count = qint64 { confirmed.max } - confirmed.min + 1;
    if (count <= manyDownloads) {
        add(confirmed);
        return;
    }
    m_seams.messages.confirm(
        { Messages::Sign::Question, m_seams.text("lang.question"), m_seams.text("more.manyDownloads").arg(count) },
        [self = QPointer(this), confirmed] {
            if (self)
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
