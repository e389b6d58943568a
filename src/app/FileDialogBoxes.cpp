// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FileDialogBoxes.h"

#include "base/MIMETypes.h"
#include "base/Messages.h"
#include "base/lang.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <utility>

FileDialogBoxes::FileDialogBoxes(const LanguageTable& language, Messages& messages)
    : m_language(language)
    , m_messages(messages)
{
}

void FileDialogBoxes::open(const Request& request, std::function<void(const QString& path)> chosen)
{
    auto* const dialog = new QFileDialog(QApplication::activeWindow(), request.title);
    dialog->setFileMode(QFileDialog::ExistingFile);
    show(dialog, request, std::move(chosen));
}

void FileDialogBoxes::save(const Request& request, std::function<void(const QString& path)> chosen)
{
    auto* const dialog = new QFileDialog(QApplication::activeWindow(), request.title);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    // The dialog would ask about the name as typed, without the extension.
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    show(dialog, request, [this, request, chosen = std::move(chosen)](const QString& path) {
        // As UTF-8, since a path may have letters that the system code page lacks.
        const QByteArray name = MIMETypes::addExtension(path.toUtf8(), request.extension.toUtf8());
        confirmReplacing(request, QString::fromUtf8(name), chosen);
    });
}

/// If the user does not want an existing file replaced, the dialog comes again with its name.
void FileDialogBoxes::confirmReplacing(
    const Request& request, const QString& path, std::function<void(const QString& path)> chosen)
{
    if (!QFileInfo::exists(path)) {
        chosen(path);
        return;
    }
    using enum Messages::Answer;
    const QString question = m_language.text("more.replaceFile").arg(QDir::toNativeSeparators(path));
    m_messages.ask({ Messages::Sign::Warning, request.title, question }, { { Yes, No }, No, No },
        [this, request, path, chosen = std::move(chosen)](Messages::Answer answer) {
            if (answer == Yes) {
                chosen(path);
                return;
            }
            Request again = request;
            again.proposal = path;
            save(again, chosen);
        });
}

void FileDialogBoxes::folder(
    const QString& title, const QString& proposal, std::function<void(const QString& path)> chosen)
{
    auto* const dialog = new QFileDialog(QApplication::activeWindow(), title, proposal);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(chosen));
    dialog->open();
}

void FileDialogBoxes::show(QFileDialog* dialog, const Request& request, std::function<void(const QString& path)> chosen)
{
    QStringList filters;
    for (const FileType& type : request.types)
        filters += QStringLiteral("%1 (%2)").arg(type.label, type.pattern);
    dialog->setNameFilters(filters);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const bool remembers = request.folder.isEmpty();
    if (const QString folder = remembers ? m_folder : request.folder; !folder.isEmpty())
        dialog->setDirectory(folder);
    if (!request.proposal.isEmpty())
        dialog->selectFile(request.proposal);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
        [this, dialog, remembers, chosen = std::move(chosen)](const QString& path) {
            if (remembers)
                m_folder = dialog->directory().path();
            chosen(path);
        });
    dialog->open();
}
