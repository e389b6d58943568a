// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/dialog_openBy.h"

#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Platform.h"
#include "base/Shell.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "ui_dialog_openBy.h"

#include <QDir>

#include <utility>

namespace {

/// The largest number of programs that are started without a question.
constexpr qsizetype manyPrograms = 20;

} // namespace

dialog_openBy::dialog_openBy(const Seams& seams, QWidget* parent)
    : QDialog(parent)
    , m_seams(seams)
    , m_ui(std::make_unique<Ui::dialog_openBy>())
{
    m_ui->setupUi(this);
    const auto applyCaptions = [this] {
        captions::apply(*this, m_seams.language);
    };
    connect(&seams.language, &LanguageTable::changed, this, applyCaptions);
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
    m_seams.fileDialogs.open({ windowTitle(),
                                 { { m_seams.text("lang.filetype_executable"), platform::programPattern() },
                                     { m_seams.text("lang.filetype_all"), QStringLiteral("*") } },
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
    m_seams.messages.confirm({ Messages::Sign::Question, m_seams.text("lang.question"),
                                 m_seams.text("more.manyPrograms").arg(commands.size()) },
        [this, commands] { startAll(commands); });
}

/// The dialog stays open if the first program cannot be started, so that the user can correct the fields.
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
    if (!byShell && m_seams.shell.start(command))
        return true;
    const QString reason = byShell ? u'\n' + m_seams.text("more.noShell") : QString();
    m_seams.messages.tell(errorReport(m_seams.language, "lang.errWhileExe", command.program + reason));
    return false;
}
