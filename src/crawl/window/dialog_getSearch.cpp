// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/window/dialog_getSearch.h"

#include "base/Messages.h"
#include "base/UrlPicker.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/OptionButtons.h"
#include "crawl/SearchOptions.h"
#include "http/url.h"
#include "ui_dialog_getSearch.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QShowEvent>

#include <limits>
#include <utility>

namespace {

/// Where a list's entry keeps the bytes that its text stands for.
constexpr int bytesRole = Qt::UserRole;

/// Longer than a URL may be, so that one that is too long is refused and not cut.
constexpr int longestTyped = 64 * 1024;

/// Takes a URL that was typed. A text that nobody has touched stays as it is, since it may hold bytes that cannot be
/// shown.
void takeUrl(const QLineEdit& field, QByteArray& url)
{
    if (field.text() != allgemein::editedText(url))
        url = url::fromTyped(allgemein::toSystem(field.text()));
}

} // namespace

dialog_getSearch::dialog_getSearch(SearchOptions& options, const Seams& seams, QWidget* parent)
    : QDialog(parent)
    , m_options(options)
    , m_seams(seams)
    , m_ui(std::make_unique<Ui::dialog_getSearch>())
{
    m_ui->setupUi(this);
    m_followButtons = optionButtons({ m_ui->rad_followSub_0, m_ui->rad_followSub_1, m_ui->rad_followSub_2 }, this);
    AnalysisSwitches& analysis = m_options.analysis;
    m_analysisBoxes = { { m_ui->c_AnalyseAnchors, &analysis.anchors }, { m_ui->c_analyseLink, &analysis.links },
        { m_ui->c_analyseAllSrc, &analysis.allSrc }, { m_ui->c_AnalyseFrames, &analysis.frames },
        { m_ui->c_AnalyseEPic, &analysis.images }, { m_ui->c_analyseForms, &analysis.forms } };
    captions::nameArrays(*this);
    for (QLineEdit* const field : { m_ui->startlink, m_ui->quellUrl, m_ui->unterpfadEingabe })
        field->setMaxLength(longestTyped);
    m_ui->tiefe->init(0, std::numeric_limits<int>::max(), 0);
    m_ui->b_copyStartUrl->setMenu(new QMenu(m_ui->b_copyStartUrl));
    wire();
    applyCaptions();
    showOptions();
}

dialog_getSearch::~dialog_getSearch() = default;

void dialog_getSearch::wire()
{
    connect(&m_seams.language, &LanguageTable::changed, this, &dialog_getSearch::applyCaptions);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &dialog_getSearch::confirm);
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->editLink, &QToolButton::clicked, this, [this] { pickInto(m_ui->startlink); });
    connect(m_ui->editQuelle, &QToolButton::clicked, this, [this] { pickInto(m_ui->quellUrl); });
    connect(m_ui->c_maxDepth, &QCheckBox::toggled, this, &dialog_getSearch::enableControls);
    connect(m_ui->c_analyseAllSrc, &QCheckBox::toggled, this, &dialog_getSearch::enableControls);
    connect(m_followButtons, &QButtonGroup::idToggled, this, &dialog_getSearch::enableControls);
    connect(m_ui->unterpfadEingabe, &QLineEdit::textChanged, this, &dialog_getSearch::enableControls);
    connect(m_ui->unterpfade, &QListWidget::itemSelectionChanged, this, &dialog_getSearch::enableControls);
    m_ui->unterpfadEingabe->installEventFilter(this);
    connect(m_ui->b_addToSubUrlList, &QToolButton::clicked, this, &dialog_getSearch::addSubUrl);
    connect(m_ui->b_deleteFromSubList, &QToolButton::clicked, this, &dialog_getSearch::deleteSubUrls);
    connect(m_ui->b_copyStartUrl, &QToolButton::clicked, this,
        [this] { m_ui->unterpfadEingabe->setText(m_ui->startlink->text()); });
    connect(m_ui->b_copyStartUrl->menu(), &QMenu::aboutToShow, this, &dialog_getSearch::offerLevels);
}

void dialog_getSearch::applyCaptions()
{
    captions::apply(*this, m_seams.language);
}

void dialog_getSearch::enableControls()
{
    m_ui->tiefe->setEnabled(m_ui->c_maxDepth->isChecked());
    const bool allSrc = m_ui->c_analyseAllSrc->isChecked();
    m_ui->c_AnalyseFrames->setEnabled(!allSrc);
    m_ui->c_AnalyseEPic->setEnabled(!allSrc);

    const bool limited = !m_ui->rad_followSub_0->isChecked();
    for (QWidget* const control :
        std::initializer_list<QWidget*> { m_ui->unterpfade, m_ui->unterpfadEingabe, m_ui->b_copyStartUrl })
        control->setEnabled(limited);
    m_ui->b_addToSubUrlList->setEnabled(limited && !m_ui->unterpfadEingabe->text().trimmed().isEmpty());
    m_ui->b_deleteFromSubList->setEnabled(limited && !m_ui->unterpfade->selectedItems().isEmpty());
}

void dialog_getSearch::showOptions()
{
    m_ui->startlink->setText(allgemein::editedText(m_options.startUrl));
    m_ui->quellUrl->setText(allgemein::editedText(m_options.quellUrl));
    m_ui->c_maxDepth->setChecked(m_options.maxDepth);
    m_ui->tiefe->setValue(m_options.tiefe);
    m_followButtons->button(static_cast<int>(m_options.followSub))->setChecked(true);
    m_ui->unterpfade->clear();
    for (const SubUrl& entry : m_options.unterpfade)
        showSubUrl(entry);
    for (const auto& [box, on] : m_analysisBoxes)
        box->setChecked(*on);
    enableControls();
}

void dialog_getSearch::takeOptions()
{
    takeUrl(*m_ui->startlink, m_options.startUrl);
    takeUrl(*m_ui->quellUrl, m_options.quellUrl);
    m_options.maxDepth = m_ui->c_maxDepth->isChecked();
    if (m_ui->tiefe->value() != qMax(0, m_options.tiefe))
        m_options.tiefe = static_cast<qint32>(m_ui->tiefe->value());
    m_options.followSub = static_cast<FollowMode>(m_followButtons->checkedId());
    m_options.unterpfade.clear();
    for (int row = 0; row < m_ui->unterpfade->count(); ++row)
        m_options.unterpfade.push_back(SubUrl::fromText(m_ui->unterpfade->item(row)->data(bytesRole).toByteArray()));
    for (const auto& [box, on] : m_analysisBoxes)
        *on = box->isChecked();
}

void dialog_getSearch::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        m_ui->startlink->setFocus();
        m_ui->startlink->selectAll();
    }
    QDialog::showEvent(event);
}

void dialog_getSearch::hideEvent(QHideEvent* event)
{
    takeOptions();
    QDialog::hideEvent(event);
}

bool dialog_getSearch::eventFilter(QObject* watched, QEvent* event)
{
    // Enter adds what is being typed; it would start the search otherwise.
    if (watched == m_ui->unterpfadEingabe && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && m_ui->b_addToSubUrlList->isEnabled()) {
            addSubUrl();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void dialog_getSearch::confirm()
{
    if (m_isConfirming)
        return;
    takeTypedSubUrl();
    takeOptions();
    const Confirmation confirmation = m_options.confirm();
    m_ui->startlink->setText(allgemein::editedText(m_options.startUrl));
    QStringList notes;
    switch (confirmation) {
    case Confirmation::InvalidStartUrl:
        m_seams.messages.tell(
            { Messages::Sign::Warning, m_seams.text("lang.userFailure"), m_seams.text("lang.invalidStartUrl") },
            [field = QPointer(m_ui->startlink)] {
                if (field)
                    field->setFocus();
            });
        return;
    case Confirmation::Unlimited:
        notes += m_seams.text("lang.warnNoSearchLimit");
        break;
    case Confirmation::Limited:
        break;
    }
    if (m_options.takesHttpsForHost())
        notes += m_seams.text("more.onlyHttp");
    startAfter(notes);
}

void dialog_getSearch::startAfter(QStringList notes)
{
    m_isConfirming = !notes.isEmpty();
    if (notes.isEmpty()) {
        hide();
        emit confirmed();
        return;
    }
    const QString note = notes.takeFirst();
    using Answer = Messages::Answer;
    m_seams.messages.ask({ Messages::Sign::Information, m_seams.text("lang.note"), note },
        { { Answer::Ok, Answer::Cancel }, Answer::Ok, Answer::Cancel }, [this, notes](Answer answer) {
            m_isConfirming = false;
            if (answer == Answer::Ok)
                startAfter(notes);
        });
}

void dialog_getSearch::pickInto(QLineEdit* field)
{
    m_seams.urlPicker.pickUrl(allgemein::toSystem(field->text()),
        [field](const QByteArray& url) { field->setText(allgemein::editedText(url)); });
}

void dialog_getSearch::showSubUrl(const SubUrl& entry)
{
    auto* const item = new QListWidgetItem(allgemein::shownText(entry.text), m_ui->unterpfade);
    item->setData(bytesRole, entry.text);
}

void dialog_getSearch::addSubUrl()
{
    takeTypedSubUrl();
    m_ui->unterpfadEingabe->setFocus();
}

void dialog_getSearch::takeTypedSubUrl()
{
    if (!m_ui->b_addToSubUrlList->isEnabled())
        return;
    showSubUrl(SubUrl::fromText(url::fromTyped(allgemein::toSystem(m_ui->unterpfadEingabe->text()))));
    m_ui->unterpfadEingabe->clear();
}

void dialog_getSearch::deleteSubUrls()
{
    qDeleteAll(m_ui->unterpfade->selectedItems());
    enableControls();
}

void dialog_getSearch::offerLevels()
{
    QMenu* const menu = m_ui->b_copyStartUrl->menu();
    menu->clear();
    const QByteArray url = url::withProtocol(url::fromTyped(allgemein::toSystem(m_ui->startlink->text())));
    for (const SubUrl& level : SubUrl::levelsOf(url)) {
        const QString text = allgemein::editedText(level.text);
        // A single "&" would mark an access key.
        QString caption = text;
        menu->addAction(
            caption.replace(u'&', QLatin1String("&&")), this, [this, text] { m_ui->unterpfadEingabe->setText(text); });
    }
}
