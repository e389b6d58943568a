// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a search file with ITEMS items: make_search ITEMS FILE.twk
#include "../Shapes.h"
#include "results/SearchFileWriter.h"

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 1;
    FundListe list;
    shapes::fill(list, QByteArray(argv[1]).toLongLong());
    SearchOptions options;
    options.startUrl = shapes::urlOf(0);
    return searchFile::save(QString::fromLocal8Bit(argv[2]), options, RequestPrefs(), list) ? 1 : 0;
}
