// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/dialog_openBy.h"

#include "base/Captions.h"
#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Platform.h"
#include "base/Shell.h"
#include "base/lang.h"
#include "ui_dialog_openBy.h"

#include <QDir>

#include <utility>

namespace {

/// Before more programs than these are started, the user is asked.
constexpr qsizetype manyPrograms = 20;

} // namespace

dialog_openBy::dialog_openBy(
    const LanguageTable& language, Messages& messages, FileDialogs& fileDialogs, Shell& shell, QWidget* parent)
    : QDialog(parent)
    , m_language(language)
    , m_messages(messages)
    , m_fileDialogs(fileDialogs)
    , m_shell(shell)
    , m_ui(std::make_unique<Ui::dialog_openBy>())
{
    m_ui->setupUi(this);
    const auto applyCaptions = [this] {
        captions::apply(*this, m_language);
    };
    connect(&language, &LanguageTable::changed, this, applyCaptions);
    connect(m_ui->b_programmAussuchen, &QToolButton::clicked, this, &dialog_openBy::chooseProgram);
    const auto enableOk = [this] {
        m_ui->b_ok->setEnabled(!m_ui->programmPfad->text().trimmed().isEmpty());
    };
    connect(m_ui->programmPfad, &QLineEdit::textChanged, this, enableOk);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &dialog_openBy::confirm);
    connect(m_ui->b_cancel, &QPushButton::clicked, this, &QDialog::reject);
    applyCaptions();
    enableOk();
}

dialog_openBy::~dialog_openBy() = default;

void dialog_openBy::run(std::function<QList<QByteArray>()> urls)
{
    m_urls = std::move(urls);
    open();
}

void dialog_openBy::chooseProgram()
{
    m_fileDialogs.open({ windowTitle(),
                           { { text("lang.filetype_executable"), platform::programPattern() },
                               { text("lang.filetype_all"), QStringLiteral("*") } },
                           {}, {} },
        [this](const QString& path) { m_ui->programmPfad->setText(QDir::toNativeSeparators(path)); });
}

void dialog_openBy::confirm()
{
    const auto commands = openBy::commands(
        m_ui->programmPfad->text().trimmed(), m_ui->parameter->text(), m_urls(), m_ui->c_oneInstance->isChecked());
    if (commands.size() <= manyPrograms) {
        startAll(commands);
        return;
    }
    m_messages.ask({ Messages::Sign::Question, text("lang.question"), text("more.manyPrograms").arg(commands.size()) },
        [this, commands](bool yes) {
            if (yes)
                startAll(commands);
        });
}

/// The window stays when not even the first program can be started: something in it is wrong.
void dialog_openBy::startAll(const QList<ProgramCommand>& commands)
{
    if (!commands.isEmpty() && !start(commands.first()))
        return;
    hide();
    m_starting.add([this, commands, next = qsizetype { 1 }]() mutable {
        return next < commands.size() && start(commands[next++]);
    });
}

bool dialog_openBy::start(const ProgramCommand& command)
{
    const bool byShell = platform::isRunByShell(command.program);
    if (!byShell && m_shell.start(command))
        return true;
    const QString reason = byShell ? u'\n' + text("more.noShell") : QString();
    m_messages.tell(errorReport(m_language, "lang.errWhileExe", command.program + reason));
    return false;
}

QString dialog_openBy::text(const char* key) const
{
    return m_language.text(key);
}
