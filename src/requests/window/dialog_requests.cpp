// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/window/dialog_requests.h"

#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Platform.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "requests/ExplorerCookies.h"
#include "requests/FirefoxDatabase.h"
#include "requests/ImportReport.h"
#include "requests/LanguageStock.h"
#include "ui_dialog_requests.h"

#include <QDir>
#include <QShortcut>

#include <utility>

namespace {

std::unique_ptr<CookieSource> openDatabase(const QString& fileName)
{
    return std::make_unique<FirefoxDatabase>(fileName);
}

} // namespace

dialog_requests::dialog_requests(
    RequestPrefs& prefs, RequestPrefs& own, CookieStore& cookies, const Seams& seams, QWidget* parent)
    : QDialog(parent)
    , m_choices(prefs, own)
    , m_cookies(cookies)
    , m_seams(seams)
    , m_ui(std::make_unique<Ui::dialog_requests>())
{
    m_ui->setupUi(this);
    m_switches = { { m_ui->c_useCookies, &m_choices.useCookies }, { m_ui->c_setCookies, &m_choices.setCookies },
        { m_ui->c_useUserAgent, &m_choices.useUserAgent }, { m_ui->c_useLanguage, &m_choices.useLanguage },
        { m_ui->c_referrer, &m_choices.useReferrer } };
    for (const QByteArray& ready : RequestPrefs::readyUserAgents())
        m_ui->t_userAgent->addItem(allgemein::fromSystem(ready));
    // Completing a typed text would store another one.
    m_ui->t_userAgent->setCompleter(nullptr);
    m_ui->t_userAgent->setCurrentText(allgemein::fromSystem(m_choices.userAgent));
    m_ui->sprachVorrat->addItems(languageStock::entries());
    wire();
    wireLanguages();
    wireCookies();
    applyCaptions();
}

dialog_requests::~dialog_requests() = default;

void dialog_requests::wire()
{
    connect(&m_seams.language, &LanguageTable::changed, this, &dialog_requests::applyCaptions);
    for (const auto& [box, on] : m_switches)
        connect(box, &QCheckBox::toggled, this, &dialog_requests::enableControls);
    connect(m_ui->b_ok, &QPushButton::clicked, this, [this] { apply([this] { hide(); }); });
    connect(m_ui->b_apply, &QPushButton::clicked, this, [this] { apply([] {}); });
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void dialog_requests::wireLanguages()
{
    connect(m_ui->sprachAdd, &QToolButton::clicked, this, &dialog_requests::addLanguages);
    connect(m_ui->sprachVorrat, &QListWidget::itemDoubleClicked, this, &dialog_requests::addLanguages);
    connect(m_ui->sprachRem, &QToolButton::clicked, this, &dialog_requests::removeLanguage);
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
        [this] { startImport([this] { return std::make_unique<ExplorerCookies>(m_seams.registry); }); });
    connect(m_ui->b_cookiesImportFF, &QPushButton::clicked, this,
        [this] { askForCookieFile(QStringLiteral("cookies.txt"), &CookieImport::sourceFor); });
    connect(m_ui->b_cookiesImportFF3, &QPushButton::clicked, this,
        [this] { askForCookieFile(QStringLiteral("cookies.sqlite"), &openDatabase); });
    connect(m_ui->b_deleteSavedCookies, &QPushButton::clicked, this, &dialog_requests::deleteCookies);
}

void dialog_requests::applyCaptions()
{
    captions::apply(*this, m_seams.language);
    m_ui->b_cookiesImportIE->setToolTip(
        ExplorerCookies::areHere(m_seams.registry) ? QString() : m_seams.text("more.noExplorer"));
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
    m_ui->b_cookiesImportIE->setEnabled(cookies && ExplorerCookies::areHere(m_seams.registry));
}

void dialog_requests::run()
{
    m_choices.begin();
    for (const auto& [box, on] : m_switches)
        box->setChecked(*on);
    enableControls();
    showLanguages();
    open();
}

void dialog_requests::takeChoices()
{
    for (const auto& [box, on] : m_switches)
        *on = box->isChecked();
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
    using enum Messages::Answer;
    // Closing the box leaves the warning on.
    m_seams.messages.ask({ Messages::Sign::Question, m_seams.text("lang.question"), m_seams.text("lang.warnCookies") },
        { { Yes, No }, Yes, Yes }, [this, then = std::move(then)](Messages::Answer again) {
            m_isApplying = false;
            if (again == No)
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

/// Not the current row: a list that gets the keyboard focus has one although nothing is selected.
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
    // Exporters give their files other names.
    const QList<FileDialogs::FileType> types { { m_seams.text("lang.filetype_mFireFoxCookieDB"), name },
        { m_seams.text("lang.filetype_all"), QStringLiteral("*") } };
    m_seams.fileDialogs.open({ windowTitle(), types, {}, {}, platform::firefoxProfilesFolder() },
        [this, sourceOf](const QString& path) { startImport([path, sourceOf] { return sourceOf(path); }); });
}

void dialog_requests::startImport(const OpenSource& open)
{
    if (!m_importing.isBusy())
        import(open, CookieImport::Taking::Harmless);
}

void dialog_requests::import(const OpenSource& open, CookieImport::Taking taking)
{
    const auto cookies = std::make_shared<CookieImport>(open(), m_cookies, taking);
    m_importing.add([this, cookies, open] {
        if (cookies->step())
            return true;
        endImport(open, *cookies);
        return false;
    });
}

/// Tells how the import ended. If cookies were left out, the user may have them too: the browser is then read anew.
void dialog_requests::endImport(const OpenSource& open, const CookieImport& cookies)
{
    Messages::Box box = importReport::box(cookies, m_seams.language);
    if (cookies.count().leftOut() == 0) {
        m_seams.messages.tell(box);
        return;
    }
    box.text += QLatin1String("\n\n") + m_seams.text("more.takeAllCookies");
    m_seams.messages.confirm(box, [this, open] { import(open, CookieImport::Taking::All); });
}

void dialog_requests::deleteCookies()
{
    const QStringList kept = m_cookies.deleteAll();
    if (kept.isEmpty())
        m_seams.messages.tell(
            { Messages::Sign::Information, m_seams.text("lang.note"), m_seams.text("lang.cookiesWereDel") });
    else
        m_seams.messages.tell(errorReport(m_seams.language, "lang.errWhileDelCookies",
            QDir::toNativeSeparators(kept.first()) + u'\n' + m_seams.text("lang.errWriteFile")));
}
