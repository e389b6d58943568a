// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/dialog_getSearch.h"

#include "base/Captions.h"
#include "base/Messages.h"
#include "base/UrlPicker.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/SearchOptions.h"
#include "crawl/url.h"
#include "ui_dialog_getSearch.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <array>
#include <limits>
#include <utility>

namespace {

/// The check boxes of the analysis with their switches.
struct AnalysisBox {
    QCheckBox* Ui::dialog_getSearch::*box;
    bool AnalysisSwitches::*on;
};
constexpr std::array analysisBoxes {
    AnalysisBox { &Ui::dialog_getSearch::c_AnalyseAnchors, &AnalysisSwitches::anchors },
    AnalysisBox { &Ui::dialog_getSearch::c_analyseLink, &AnalysisSwitches::links },
    AnalysisBox { &Ui::dialog_getSearch::c_analyseAllSrc, &AnalysisSwitches::allSrc },
    AnalysisBox { &Ui::dialog_getSearch::c_AnalyseFrames, &AnalysisSwitches::frames },
    AnalysisBox { &Ui::dialog_getSearch::c_AnalyseEPic, &AnalysisSwitches::images },
    AnalysisBox { &Ui::dialog_getSearch::c_analyseForms, &AnalysisSwitches::forms },
};

constexpr std::array followButtons { &Ui::dialog_getSearch::rad_followSub_0, &Ui::dialog_getSearch::rad_followSub_1,
    &Ui::dialog_getSearch::rad_followSub_2 };

/// Where a list's entry keeps the bytes that its text stands for.
constexpr int bytesRole = Qt::UserRole;

/// Takes what was typed. A text that nobody has touched stays what it is, bytes that cannot be shown included.
void takeText(const QLineEdit& field, QByteArray& text)
{
    if (field.text() != allgemein::fromSystem(text))
        text = allgemein::toSystem(field.text().trimmed());
}

} // namespace

dialog_getSearch::dialog_getSearch(
    SearchOptions& options, const LanguageTable& language, Messages& messages, UrlPicker& picker, QWidget* parent)
    : QDialog(parent)
    , m_options(options)
    , m_language(language)
    , m_messages(messages)
    , m_picker(picker)
    , m_ui(std::make_unique<Ui::dialog_getSearch>())
{
    m_ui->setupUi(this);
    captions::nameArrays(*this);
    for (QLineEdit* const field : { m_ui->startlink, m_ui->quellUrl, m_ui->unterpfadEingabe })
        field->setMaxLength(url::longest);
    m_ui->tiefe->init(0, std::numeric_limits<int>::max(), 0);
    m_ui->b_copyStartUrl->setMenu(new QMenu(m_ui->b_copyStartUrl));
    wire();
    applyCaptions();
    showOptions();
}

dialog_getSearch::~dialog_getSearch() = default;

void dialog_getSearch::wire()
{
    connect(&m_language, &LanguageTable::changed, this, &dialog_getSearch::applyCaptions);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &dialog_getSearch::confirm);
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->editLink, &QToolButton::clicked, this, [this] { pickInto(m_ui->startlink); });
    connect(m_ui->editQuelle, &QToolButton::clicked, this, [this] { pickInto(m_ui->quellUrl); });
    connect(m_ui->c_maxDepth, &QCheckBox::toggled, this, &dialog_getSearch::enableControls);
    connect(m_ui->c_analyseAllSrc, &QCheckBox::toggled, this, &dialog_getSearch::enableControls);
    for (const auto button : followButtons)
        connect((*m_ui).*button, &QRadioButton::toggled, this, &dialog_getSearch::enableControls);
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
    captions::apply(*this, m_language);
    const char* const obstacle = m_picker.obstacle();
    if (!obstacle)
        return;
    for (QToolButton* const button : { m_ui->editLink, m_ui->editQuelle }) {
        button->setEnabled(false);
        button->setToolTip(m_language.text(obstacle));
    }
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
    m_ui->startlink->setText(allgemein::fromSystem(m_options.startUrl));
    m_ui->quellUrl->setText(allgemein::fromSystem(m_options.quellUrl));
    m_ui->c_maxDepth->setChecked(m_options.maxDepth);
    m_ui->tiefe->setValue(m_options.tiefe);
    ((*m_ui).*followButtons[static_cast<size_t>(m_options.followSub)])->setChecked(true);
    m_ui->unterpfade->clear();
    for (const SubUrl& entry : m_options.unterpfade)
        showSubUrl(entry);
    for (const AnalysisBox& entry : analysisBoxes)
        ((*m_ui).*entry.box)->setChecked(m_options.analysis.*entry.on);
    enableControls();
}

void dialog_getSearch::takeOptions()
{
    takeText(*m_ui->startlink, m_options.startUrl);
    takeText(*m_ui->quellUrl, m_options.quellUrl);
    m_options.maxDepth = m_ui->c_maxDepth->isChecked();
    if (m_ui->tiefe->value() != qMax(0, m_options.tiefe))
        m_options.tiefe = m_ui->tiefe->value();
    for (size_t mode = 0; mode < followButtons.size(); ++mode) {
        if (((*m_ui).*followButtons[mode])->isChecked())
            m_options.followSub = static_cast<FollowMode>(mode);
    }
    m_options.unterpfade.clear();
    for (int row = 0; row < m_ui->unterpfade->count(); ++row)
        m_options.unterpfade.push_back(SubUrl::fromText(m_ui->unterpfade->item(row)->data(bytesRole).toByteArray()));
    for (const AnalysisBox& entry : analysisBoxes)
        m_options.analysis.*entry.on = ((*m_ui).*entry.box)->isChecked();
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
    takeOptions();
    const Confirmation confirmation = m_options.confirm();
    m_ui->startlink->setText(allgemein::fromSystem(m_options.startUrl));
    QStringList notes;
    switch (confirmation) {
    case Confirmation::InvalidStartUrl:
        m_messages.tell(
            { Messages::Sign::Warning, m_language.text("lang.userFailure"), m_language.text("lang.invalidStartUrl") },
            [field = QPointer(m_ui->startlink)] {
                if (field)
                    field->setFocus();
            });
        return;
    case Confirmation::Unlimited:
        notes += m_language.text("lang.warnNoSearchLimit");
        break;
    case Confirmation::Limited:
        break;
    }
    if (m_options.takesHttpsForHost())
        notes += m_language.text("more.onlyHttp");
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
    m_messages.tell(
        { Messages::Sign::Information, m_language.text("lang.note"), note }, [this, notes] { startAfter(notes); });
}

void dialog_getSearch::pickInto(QLineEdit* field)
{
    m_picker.pickUrl(allgemein::toSystem(field->text()),
        [field](const QByteArray& url) { field->setText(allgemein::fromSystem(url)); });
}

void dialog_getSearch::showSubUrl(const SubUrl& entry)
{
    auto* const item = new QListWidgetItem(allgemein::shownText(entry.text), m_ui->unterpfade);
    item->setData(bytesRole, entry.text);
}

void dialog_getSearch::addSubUrl()
{
    const SubUrl entry = SubUrl::fromText(allgemein::toSystem(m_ui->unterpfadEingabe->text().trimmed()));
    showSubUrl(entry);
    m_ui->unterpfadEingabe->clear();
    m_ui->unterpfadEingabe->setFocus();
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
    const QByteArray url = url::withProtocol(allgemein::toSystem(m_ui->startlink->text().trimmed()));
    for (const SubUrl& level : SubUrl::levelsOf(url)) {
        const QString text = allgemein::fromSystem(level.text);
        // A single "&" would mark an access key.
        QString caption = text;
        menu->addAction(
            caption.replace(u'&', QLatin1String("&&")), this, [this, text] { m_ui->unterpfadEingabe->setText(text); });
    }
}
