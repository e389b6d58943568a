// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/dialog_requests.h"

#include "base/Captions.h"
#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Platform.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "requests/CookieImport.h"
#include "requests/CookiesTxt.h"
#include "requests/ExplorerCookies.h"
#include "requests/FirefoxDatabase.h"
#include "requests/LanguageStock.h"
#include "ui_dialog_requests.h"

#include <QDir>
#include <QShortcut>

#include <array>
#include <utility>

namespace {

/// The check boxes with their switches.
struct SwitchBox {
    QCheckBox* Ui::dialog_requests::*box;
    bool RequestChoices::*on;
};
constexpr std::array switchBoxes {
    SwitchBox { &Ui::dialog_requests::c_useCookies, &RequestChoices::useCookies },
    SwitchBox { &Ui::dialog_requests::c_setCookies, &RequestChoices::setCookies },
    SwitchBox { &Ui::dialog_requests::c_useUserAgent, &RequestChoices::useUserAgent },
    SwitchBox { &Ui::dialog_requests::c_useLanguage, &RequestChoices::useLanguage },
    SwitchBox { &Ui::dialog_requests::c_referrer, &RequestChoices::useReferrer },
};

template <typename Source> std::unique_ptr<CookieSource> sourceOf(const QString& fileName)
{
    return std::make_unique<Source>(fileName);
}

} // namespace

dialog_requests::dialog_requests(RequestPrefs& prefs, const CookieStore& cookies, const LanguageTable& language,
    Messages& messages, FileDialogs& fileDialogs, const Registry& registry, QWidget* parent)
    : QDialog(parent)
    , m_choices(prefs)
    , m_cookies(cookies)
    , m_language(language)
    , m_messages(messages)
    , m_fileDialogs(fileDialogs)
    , m_registry(registry)
    , m_ui(std::make_unique<Ui::dialog_requests>())
{
    m_ui->setupUi(this);
    for (const QByteArray& ready : RequestPrefs::readyUserAgents())
        m_ui->t_userAgent->addItem(allgemein::fromSystem(ready));
    m_ui->t_userAgent->setCurrentText(allgemein::fromSystem(m_choices.userAgent));
    m_ui->sprachVorrat->addItems(LanguageStock::entries());
    wire();
    wireLanguages();
    wireCookies();
    applyCaptions();
}

dialog_requests::~dialog_requests() = default;

void dialog_requests::wire()
{
    connect(&m_language, &LanguageTable::changed, this, &dialog_requests::applyCaptions);
    for (const SwitchBox& entry : switchBoxes)
        connect((*m_ui).*entry.box, &QCheckBox::toggled, this, &dialog_requests::enableControls);
    connect(m_ui->b_ok, &QPushButton::clicked, this, [this] { apply([this] { hide(); }); });
    connect(m_ui->b_apply, &QPushButton::clicked, this, [this] { apply([] {}); });
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void dialog_requests::wireLanguages()
{
    connect(m_ui->sprachAdd, &QPushButton::clicked, this, &dialog_requests::addLanguages);
    connect(m_ui->sprachVorrat, &QListWidget::itemDoubleClicked, this, &dialog_requests::addLanguages);
    connect(m_ui->sprachRem, &QPushButton::clicked, this, &dialog_requests::removeLanguage);
    connect(m_ui->sprachAuswahl, &QListWidget::itemDoubleClicked, this, &dialog_requests::removeLanguage);
    const auto* const remove =
        new QShortcut(QKeySequence::Delete, m_ui->sprachAuswahl, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &dialog_requests::removeLanguage);
    connect(m_ui->sprachAuswahlHoch, &QToolButton::clicked, this, [this] { moveLanguage(-1); });
    connect(m_ui->sprachAuswahlRunter, &QToolButton::clicked, this, [this] { moveLanguage(1); });
}

void dialog_requests::wireCookies()
{
    connect(m_ui->b_cookiesImportIE, &QPushButton::clicked, this,
        [this] { startImport(std::make_unique<ExplorerCookies>(m_registry)); });
    connect(m_ui->b_cookiesImportFF, &QPushButton::clicked, this,
        [this] { askForCookieFile(QStringLiteral("cookies.txt"), &sourceOf<CookiesTxt>); });
    connect(m_ui->b_cookiesImportFF3, &QPushButton::clicked, this,
        [this] { askForCookieFile(QStringLiteral("cookies.sqlite"), &sourceOf<FirefoxDatabase>); });
    connect(m_ui->b_deleteSavedCookies, &QPushButton::clicked, this, &dialog_requests::deleteCookies);
}

void dialog_requests::applyCaptions()
{
    captions::apply(*this, m_language);
    m_ui->b_cookiesImportIE->setToolTip(ExplorerCookies::areHere(m_registry) ? QString() : text("more.noExplorer"));
}

void dialog_requests::enableControls()
{
    m_ui->t_userAgent->setEnabled(m_ui->c_useUserAgent->isChecked());
    const bool byLanguage = m_ui->c_useLanguage->isChecked();
    for (QWidget* const control : std::initializer_list<QWidget*> { m_ui->sprachRem, m_ui->sprachAdd,
             m_ui->sprachAuswahl, m_ui->t_sprachen, m_ui->sprachAuswahlHoch, m_ui->sprachAuswahlRunter })
        control->setEnabled(byLanguage);
    const bool cookies = m_ui->c_useCookies->isChecked();
    for (QPushButton* const button : { m_ui->b_cookiesImportFF, m_ui->b_cookiesImportFF3, m_ui->b_deleteSavedCookies })
        button->setEnabled(cookies);
    m_ui->b_cookiesImportIE->setEnabled(cookies && ExplorerCookies::areHere(m_registry));
}

void dialog_requests::run()
{
    m_choices.begin();
    for (const SwitchBox& entry : switchBoxes)
        ((*m_ui).*entry.box)->setChecked(m_choices.*entry.on);
    enableControls();
    showLanguages();
    open();
}

void dialog_requests::takeChoices()
{
    for (const SwitchBox& entry : switchBoxes)
        m_choices.*entry.on = ((*m_ui).*entry.box)->isChecked();
    m_choices.userAgent = allgemein::toSystem(m_ui->t_userAgent->currentText());
}

void dialog_requests::apply(std::function<void()> then)
{
    if (m_isApplying)
        return;
    takeChoices();
    if (!m_choices.needsCookieWarning()) {
        m_choices.apply();
        then();
        return;
    }
    m_isApplying = true;
    m_messages.ask({ Messages::Sign::Question, text("lang.question"), text("lang.warnCookies") },
        [this, then = std::move(then)](bool again) {
            m_isApplying = false;
            if (!again)
                m_choices.dontWarnAgain();
            m_choices.apply();
            then();
        });
}

void dialog_requests::showLanguages()
{
    m_ui->sprachAuswahl->clear();
    for (const QByteArray& entry : m_choices.languages())
        m_ui->sprachAuswahl->addItem(allgemein::shownText(entry));
    m_ui->t_sprachen->setText(allgemein::shownText(m_choices.languageHeader()));
}

void dialog_requests::addLanguages()
{
    QList<QByteArray> chosen;
    for (int row = 0; row < m_ui->sprachVorrat->count(); ++row) {
        const QListWidgetItem* const item = m_ui->sprachVorrat->item(row);
        if (item->isSelected())
            chosen += allgemein::toSystem(item->text());
    }
    m_choices.addLanguages(chosen);
    selectLanguage(m_choices.languages().size() - 1);
}

void dialog_requests::removeLanguage()
{
    const auto row = selectedLanguage();
    if (!row)
        return;
    m_choices.removeLanguage(*row);
    selectLanguage(qMin<qsizetype>(*row, m_choices.languages().size() - 1));
}

void dialog_requests::moveLanguage(int by)
{
    if (const auto row = selectedLanguage())
        selectLanguage(m_choices.moveLanguage(*row, by));
}

/// The current row is another thing: a list that gets the focus has one at once.
std::optional<qsizetype> dialog_requests::selectedLanguage() const
{
    const QList<QListWidgetItem*> selected = m_ui->sprachAuswahl->selectedItems();
    return selected.isEmpty() ? std::nullopt : std::optional<qsizetype>(m_ui->sprachAuswahl->row(selected.first()));
}

void dialog_requests::selectLanguage(qsizetype index)
{
    showLanguages();
    m_ui->sprachAuswahl->setCurrentRow(static_cast<int>(index));
}

void dialog_requests::askForCookieFile(
    const QString& name, std::unique_ptr<CookieSource> (*sourceOf)(const QString& fileName))
{
    m_fileDialogs.open({ windowTitle(), { { text("lang.filetype_mFireFoxCookieDB"), name } }, {}, {},
                           platform::firefoxProfilesFolder() },
        [this, sourceOf](const QString& path) { startImport(sourceOf(path)); });
}

void dialog_requests::startImport(std::unique_ptr<CookieSource> source)
{
    if (m_importing.isBusy())
        return;
    const auto import = std::make_shared<CookieImport>(std::move(source), m_cookies);
    m_importing.add([this, import] {
        if (import->step())
            return true;
        m_messages.tell(cookieImport::report(*import, m_language));
        return false;
    });
}

void dialog_requests::deleteCookies()
{
    const QStringList kept = m_cookies.deleteAll();
    if (kept.isEmpty())
        m_messages.tell({ Messages::Sign::Information, text("lang.note"), text("lang.cookiesWereDel") });
    else
        m_messages.tell(errorReport(m_language, "lang.errWhileDelCookies",
            QDir::toNativeSeparators(kept.first()) + u'\n' + text("lang.errWriteFile")));
}

QString dialog_requests::text(const char* key) const
{
    return m_language.text(key);
}
