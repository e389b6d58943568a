// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FileDialogBoxes.h"

#include <QApplication>

#include <utility>

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
    dialog->setDefaultSuffix(request.defaultSuffix);
    show(dialog, request, std::move(chosen));
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
