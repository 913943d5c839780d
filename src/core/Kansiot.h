// Special folders of the desktop: the user's documents, desktop, application data and temp.
#pragma once

#include <QString>

// The program's own folder codes (KansioKoodi). Codes 0 to 42 are reserved for folders; only
// those with a counterpart on this desktop are named here, the others give an empty path.
namespace KansioKoodit {
constexpr int Tyopoyta = 0;            // the desktop folder
constexpr int Sovellustiedot = 2;      // application data, shared by the user's programs
constexpr int PaikallisetSovellustiedot = 27;
constexpr int OmatTiedostot = 28;      // the user's documents
constexpr int Tilapainen = 36;         // the temp folder
constexpr int Viimeinen = 42;
} // namespace KansioKoodit

// The shell's folder codes (CSIDL numbers) that this desktop can answer.
namespace ShellKansiot {
constexpr int Desktop = 0x0000;
constexpr int Personal = 0x0005;
constexpr int DesktopDirectory = 0x0010;
constexpr int AppData = 0x001a;
constexpr int LocalAppData = 0x001c;
} // namespace ShellKansiot

// Path of a special folder by the shell's folder code, without a trailing slash; empty when the
// desktop has no such folder.
QString ErikoisKansio(int shellKoodi);
// The temp folder, ending in "/" so that a file name can be joined directly.
QString TilapaisKansio();
// Path of a folder by the program's own code; empty for a code this desktop has no folder for.
QString KansioKoodi(int koodi);
