#include "platform/dialogs.h"

#include <cstdio>
#include <cstdlib>

namespace dlg {
namespace {
Dialogs *g_dialogs = nullptr;
}

Dialogs &current()
{
    if (!g_dialogs) {
        std::fprintf(stderr, "Vonari: no dialogs installed\n");
        std::abort();
    }
    return *g_dialogs;
}

void install(Dialogs *d) { g_dialogs = d; }

} // namespace dlg
