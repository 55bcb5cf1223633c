// The input is a help file. Few inputs hit the sums that it must have, but all are read as an
// archive, whose files can't hold more than it does.

#include "help/HelpBook.h"
#include "help/TarArchive.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    qsizetype total = 0;
    if (const auto files = readTar(input)) {
        for (const TarEntry &file : *files)
            total += file.content.size();
    }
    if (total > input.size())
        std::abort();
    static_cast<void>(HelpBook::read(input));
    return 0;
}
