// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LanguageFile.h"
#include "fuzz/fuzz.h"

/// Input: a language file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static LanguageTable table;
    static const qsizetype keys = table.keys().size();
    const QByteArray content = Input(data, size).rest();
    LanguageFile file(fileWith(content), table);
    qsizetype stepsLeft = 1 + content.count('\n') + 1;
    LanguageFile::Step step = file.read();
    for (; step == LanguageFile::Step::UnknownKey && --stepsLeft > 0; step = file.read())
        require(!table.contains(file.key()), "a key that is told of is none of the table's");
    require(step == LanguageFile::Step::End, "a file ends");
    require(table.keys().size() == keys, "a file adds no keys");
    return 0;
}
