// The program's shared state: one variable per setting, filled at start from the INI file and
// the database, and written back by the settings windows. Everything else reads only these.
#pragma once

#include "platform/currency.h"
#include "platform/inistore.h"

#include <QDate>
#include <QString>

class KantaStore;

namespace MainModule {

inline QString AppName = QStringLiteral("Vonari");
inline QString IniName = QStringLiteral("Vonari.ini");

// Workstation (INI)
inline QString DatabasePath;
inline QString BackupPath;
inline bool MultiDb = false;
// Set when the opening at start fell back to the demonstration database.
inline bool OletusKantaOtettu = false;

// Club (database)
inline QString RegName;
inline QString Henkilo;
inline QString RegOsoite;
inline QString RegPostinumero;
inline QString RegPostitoimipaikka;
inline QString RegPuhelin;
inline QString RegFax;
inline QString Email;
inline QString RegSeuranEmail;
inline QString RegWWW;
inline QString SMTP;
inline long EmailPerMin = 0;
inline bool EmailSystem = false;
// The SMTP connection beside the server's name. The password is in the desktop's keyring, never
// in the club's database (core/Postisalasana.h).
inline long SMTPPortti = 0;        // 0: the usual port of the security
inline int SMTPSuojaus = 0;        // 0 none, 1 STARTTLS, 2 SMTPS
inline QString SMTPKayttaja;       // empty: no login
inline QString SMTPVarmenne;       // a certificate file to trust (a server with its own certificate)
inline QString RegPankkiyhteys1;
inline QString RegPankkiyhteys2;
inline QString YTunnus;
inline QString EmailPohja;
inline QString EmailKarhupohja;
inline QString Salasana;
inline QString ViiteHakemisto;
inline long Laskunro = 0;
inline long Jasennro = 0;
inline QDate BackupDate;
inline long VarmuuskopioPv = 30;
inline bool AutoJasennumero = false;
inline bool MuistutaVarm = false;
inline bool LaskupohjaKaytossa = false;
inline bool LaskupohjaHKaytossa = false;
inline QString LaskupohjaTiedosto;
inline QString LaskupohjaHTiedosto;
inline Currency Muistutuskulut;
inline double Viivastyskorko = 0;
inline QString MuistutusOtsake;
inline QString MuistutusAlku;
inline QString MuistutusLoppu;
inline int TulostusEra = 0;
inline QString Suoritustiedosto;
inline QString OsoiteTiedosto;
inline int OsoiteMuoto = 0;
inline bool SuuretSuorituksetMaksetuksi = false;
inline bool SuorituksellaMaksetuksiJosEiLoppusummaa = false;
inline QString Fontti = QStringLiteral("Times New Roman");
inline int FonttiKoko = 10;
inline int MargOik = 0;
inline int MargVas = 0;
inline int MargYla = 0;
inline int MargAla = 0;

// Margins as the report engine takes them (the settings' values × 48).
struct ReportMargins {
    int left = 0, right = 0, top = 0, bottom = 0;
};
inline ReportMargins RaporttiMarginaalit;

// The INI store, created on first use.
IniStore &IniAsetukset();
void releaseIniAsetukset();

// Back to the values of a program that has read nothing (tests start from here).
void resetGlobals();

QString versionText(); // "1.0.0"
int versionMajor();
int versionMinor();

} // namespace MainModule
