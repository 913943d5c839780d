// The template menu of an invoice window: "Laskupohjat" (mLaskupohjat) on the window's menu bar,
// with "Muokkaa laskupohjia" (mMuokkaaLaskupohjia) and one entry (mLaskupohjaX) for each template
// of the window's kind, captioned with its name, in the order of the names. Without templates
// there are no such entries.
//
// Usage, when the window opens:
//     LaskupohjaValikko::rakenna(menuBar, laskupohja::Perus, [this](int indeksi) {
//         MaksujenLuontiLomake l = lueLomake();
//         if (tietue::Suojattu([&] { KaytaValittuaLaskupohjaa(MainModule::DatabasePath, indeksi, l); }))
//             kirjoitaLomake(l);
//     });
// "Muokkaa laskupohjia" opens frmLaskupohjat modally and rebuilds the entries after it closes.
#pragma once

#include <functional>

class QMenu;
class QMenuBar;

namespace LaskupohjaValikko {

// Builds the menu on `palkki`, or rebuilds the one built there before (the callback is replaced).
// `valittu` gets the chosen entry's 0-based index among the templates of `laskutyyppi` (0 plain,
// 1 family, 2 attribute); the templates are to be read again when it is called, since the list
// may have changed meanwhile (KaytaValittuaLaskupohjaa does both). The templates are read from
// MainModule::DatabasePath; a failure to read them is shown and leaves only the edit entry.
QMenu *rakenna(QMenuBar *palkki, int laskutyyppi, std::function<void(int indeksi)> valittu);

// Reads the templates again into a menu built by rakenna().
void paivita(QMenu *valikko);

} // namespace LaskupohjaValikko
