// SPDX-License-Identifier: GPL-3.0-or-later
// Writes its arguments into a file, a line each, and "end" as the last line.
#include <cstdlib>
#include <fstream>

int main(int argc, char* argv[])
{
    std::ofstream file(std::getenv("TARNWICK_ARGUMENTS_FILE"), std::ios::binary);
    for (int argument = 1; argument < argc; ++argument)
        file << argv[argument] << '\n';
    file << "end\n";
    return file ? 0 : 1;
}
