// The saves of the two settings windows, and the answer of the mail-server query, without widgets.
// The windows read their controls into these structs; the fields carry the controls' names.
#pragma once

#include "platform/database.h"

#include <QString>
#include <memory>

// The values of frmAsetukset as typed.
struct AsetuksetSyote {
    // Club data
    QString tNimi;
    QString tHenkilo;
    QString tOsoite;
    QString tPostinumero;
    QString tPostitoimipaikka;
    QString tPuhelin;
    QString tFax;
    QString tSeuranEmail;
    QString tWWW;
    QString tPankkiyhteys1;
    QString tPankkiyhteys2;
    QString tYTunnus;
    // Internet
    int optEmailSystem = 0; // 1 = direct SMTP
    QString tEmail;
    QString tSMTP;
    QString tEmailPerMin;
    QString tSMTPPortti;
    int cmbSMTPSuojaus = 0; // 0 none, 1 STARTTLS, 2 SMTPS
    QString tSMTPKayttaja;
    QString tSMTPSalasana;  // goes to the keyring, never to the database
    QString tSMTPVarmenne;
    // Program
    QString tTietokanta;
    QString tVarmistus;
    bool chkMoniseuratuki = false;
    QString tLaskunumero;
    QString tJasennumero;
    bool chkJasennumero = false;
    QString tVarmuuskopioPv;
    bool chkMuistutaVarmistuksesta = false;
    QString tSalasana;
    QString tEmailLaskupohja;
    QString tEmailKarhupohja;
    // Reminders
    QString tMuistutuskulut;
    QString tViivastysKorko;
    QString tMuistutusOtsake;
    QString tMuistutusAlkuteksti;
    QString tMuistutusLopputeksti;
    // Printing
    QString tTulostusEra;
    QString cmbFonts;
    QString cmbFonttiKoko;
    QString tMargVas;
    QString tMargOik;
    QString tMargYla;
    QString tMargAla;
    // Invoice layouts
    bool chkLaskupohjaKaytossa = false;
    QString tLaskupohjaTiedosto;
    bool chkLaskupohjaHKaytossa = false;
    QString tLaskupohjaHTiedosto;
};

struct AsetustenTallennusTulos {
    // False when a number stopped the save or the store failed: the window stays open.
    bool valmis = false;
    // The control that must get the focus (its object name), empty when none.
    QString kohdistus;
};

// The save of frmAsetukset: the INI values, then the database keys in their fixed order. A bad
// number stops the save at its turn with its message; the keys before it stay written. A database
// that cannot be found or opened is told, and the globals are still set from the window.
AsetustenTallennusTulos TallennaAsetukset(const AsetuksetSyote &s);

// Writes the INI values Database, DatabaseBackup (made to end in "/") and MultiDb, and their globals.
void TallennaIniAsetukset(const QString &tietokanta, const QString &varmistus, bool moniseuratuki);

// A folder made to end in "/"; an empty text stays empty.
QString KauttaviivaLoppuun(const QString &kansio);

// The values of frmAsetuksetLisa. `optOsoitemuoto` is the export format: 0 list with ";",
// 1 fixed columns, 2 spreadsheet.
struct LisaasetuksetSyote {
    bool chkSuuretSuorituksetMaksetuksi = false;
    bool chkSuorituksellaMaksetuksiJosEiLoppusummaa = false;
    QString tSuoritustiedosto;
    QString tOsoitteidenVienti;
    int optOsoitemuoto = 0;
};

// The save of frmAsetuksetLisa; false when the store failed and the window should stay open.
bool TallennaLisaasetukset(const LisaasetuksetSyote &s);

// Opens the database at DatabasePath for a settings save. Tells why when it cannot: a missing
// file or a bad path, a file that is no database of ours, a locked one; a damaged file goes
// through the repair. Null then, and the caller goes on without the database.
std::unique_ptr<db::Database> AvaaKantaAsetuksille();

// What the mail-server query's answer does to the SMTP field: the text the field holds after it.
// An empty answer is told; a different server is taken only when the user agrees.
QString MxVastauksenKasittely(const QString &vastaus, const QString &tSMTP);
