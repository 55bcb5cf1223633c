// The input is a mode source, and a mode file that must survive unpacking and packing.

#include "engine/source/CheckMode.h"
#include "engine/source/PackMode.h"
#include "engine/source/UnpackMode.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const PackedMode packed = packMode(QString::fromUtf8(bytes));
    if (!packed.bytes.isEmpty() && packMode(unpackMode(packed.bytes)).bytes != packed.bytes)
        std::abort();
    if (packMode(unpackMode(bytes)).bytes != bytes)
        std::abort();
    static_cast<void>(checkMode(bytes));
    return 0;
}
