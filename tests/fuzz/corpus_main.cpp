// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"

#include <QDir>
#include <QFileInfo>

/// Runs a fuzzer on the files of a folder, one after the other: `fuzz_NAME FOLDER`. It replaces the main function of
/// the fuzzing library, which other compilers lack.
int main(int argc, char** argv)
{
    const QByteArray program = QFileInfo(QString::fromLocal8Bit(argv[0])).baseName().toUtf8();
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        // If an input ends the program, this line names it.
        std::printf("INPUT  : %s\n", qPrintable(folder.filePath(name)));
        std::fflush(stdout);
        const QByteArray input = contentOf(folder.filePath(name));
        LLVMFuzzerTestOneInput(
            reinterpret_cast<const std::uint8_t*>(input.constData()), static_cast<size_t>(input.size()));
        std::printf("PASS   : %s::%s\n", program.constData(), qPrintable(name));
    }
    return names.isEmpty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
