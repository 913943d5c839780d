// libFuzzer target over the reader of the bank's payment files: any bytes give batches or a
// ViiteaineistoVirhe. Anything else (a crash, a sanitizer report, another exception, a hang) is a
// fault. tests/payments/tst_viiteaineisto_korpus replays the saved inputs in the ordinary build.
#include "payments/ViiteaineistoLukija.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray tavut(reinterpret_cast<const char *>(data), qsizetype(size));
    try {
        const QList<ViiteEra> erat = ViiteaineistoLukija().LueTavut(tavut);
        // Touch what a window would show, so a batch built wrong shows under the sanitizers.
        qsizetype merkkeja = 0;
        for (const ViiteEra &e : erat)
            for (const ViiteTapahtuma &t : e.Tapahtumat)
                merkkeja += t.Viitenumero.size() + t.Rahamaara.size() + t.Nimi.size();
        (void)merkkeja;
    } catch (const ViiteaineistoVirhe &) {
    }
    return 0;
}
