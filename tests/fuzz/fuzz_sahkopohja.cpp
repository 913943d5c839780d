// libFuzzer target over the e-mail template merge: any template file and any values give a text.
// A crash, a sanitizer report, a hang or a broken promise of the merge is a fault.
// tests/email/tst_sahkopohja_korpus replays the saved inputs in the ordinary build.
#include "sahkopohja_syote.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString vika = KokeileSahkopohja(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (!vika.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(vika));
        std::abort();
    }
    return 0;
}
