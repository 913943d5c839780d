// A member row as the member window edits it, and the member operations that need no window:
// saving with the unique member number, the next automatic number, copy, delete, the deletion of
// non-payers, the clipboard forms, the postal-code check and the personal reference.
#pragma once

#include "platform/database.h"
#include "platform/recordset.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

// The member window's eighteen text boxes; the index decides what paste, copy and the date
// rules do with a box.
inline constexpr int YhteystietoMaara = 18;
enum Yhteystieto : int {
    iJasennumero = 0,
    iSukunimi = 1,
    iEtunimi = 2,
    iOsoite = 3,
    iPostinumero = 4,
    iPostitoimipaikka = 5,
    iPuhelin = 6,
    iMatkapuhelin = 7,
    iEmail = 8,
    iViitenumero = 9,
    iTitteli = 10,
    iSyntyma = 11,
    iLiittyma = 12,
    iLisatieto2 = 13,
    iLisatieto1 = 14,
    iKotipaikka = 15,
    iMaa = 16,
    iYritys = 17
};

// The column of `jr` behind text box `i`.
QString YhteystietoKentta(int i);
// The widest text the column takes (a line edit's maxLength); 0 for the dates.
int YhteystietoLeveys(int i);
inline bool OnPaivaKentta(int i) { return i == iSyntyma || i == iLiittyma; }

// What the bound controls hold: texts as shown (dates as d.M.yyyy), Null as empty text.
struct JasenLomake {
    std::array<QString, YhteystietoMaara> tYhteystiedot;
    bool chkJasenmaksu = false;
    bool chkEmailLasku = false;
    bool chkPerhLaskutettava = false;
    QString tMuistio;
};

// The current row of a recordset over `jr` (during an edit, the values being written).
JasenLomake LueLomake(const db::Recordset &rs);

// Puts the controls into the row being edited, as the row's validation does before a write: a
// date box that holds no date gives Null, an empty text gives Null. Of a row being edited only
// the fields where `lomake` differs from `naytetty`, what the window showed when the row was
// read, are set; a new row gets them all. jrPostinumeroNumero follows a changed postal code.
void KirjoitaLomake(db::Recordset &rs, const JasenLomake &lomake, const JasenLomake &naytetty);

// The numeric twin of a postal code: the text as a whole number if it is one, else 0.
qint64 PostinumeroNumeroksi(const QString &postinumero);

// Whether another row than `omaId` has this member number, in any case of its letters as the
// register has always compared text. An empty number is never taken.
bool JasennumeroVarattu(db::Database &db, const QString &numero, qint64 omaId);
QString JasennumeroVarattuViesti(const QString &numero);

enum class Tallennus { Tallennettu, NumeroVarattu };
// Writes the row being edited or added. A number already in use is not written: the field is
// set to Null and the row stays in edit mode with everything else as typed.
Tallennus TallennaRivi(db::Database &db, db::Recordset &rs, const JasenLomake &lomake, const JasenLomake &naytetty);

// The next automatic member number: the number in memory, or the first free one above it when
// that is taken; the counter then moves past it and is written at once to the settings of the
// database through `db`. A number given is used up even if its row is cancelled.
QString AnnaJasennumero(db::Database &db);
// The smallest whole number from `alkaen` up that no member has as his number.
qint64 EnsimmainenVapaaJasennumero(db::Database &db, qint64 alkaen);

// The fields a copy takes over from the member `jrId` (surname to e-mail); the rest empty.
JasenLomake KopioitavatTiedot(db::Database &db, qint64 jrId);

// Removes the member and his attribute rows. Family links and invoices stay.
void PoistaJasen(db::Database &db, qint64 jrId);

// Members whose membership fee is not marked paid (a Null mark is unpaid).
int MaksamattomienMaara(db::Database &db);
// Deletes them, their attribute rows left in place; returns the number deleted.
int PoistaMaksamattomat(db::Database &db);

// The number of members shown in the title: everybody, or the holders of attribute `piId`.
int JasenMaara(db::Database &db, qint64 piId);

// Name, street and post office lines for the clipboard.
QString YhteystiedotLeikepoydalle(const JasenLomake &lomake);

// A ";"-separated member from the clipboard. No parts when the text has fewer than two.
struct Liimaus {
    QStringList osat; // up to 13 texts for boxes 0 to 12
    bool jasenmaksu = false;
    bool emailLasku = false;
};
Liimaus LueLiimaus(const QString &teksti);

// The members whose postal code is not empty and not only digits.
struct Postinumerovirhe {
    QString jasennumero, sukunimi, etunimi;
};
QVector<Postinumerovirhe> TarkistaPostinumerot(db::Database &db);
QString PostinumeroOhje();
QString PostinumerovirheViesti(const Postinumerovirhe &v);

// The personal reference with its check digit added, or the message that refuses it.
struct ViitetarkisteTulos {
    std::optional<QString> viite;
    QString viesti;
};
ViitetarkisteTulos LisaaViitetarkiste(const QString &viite);

// The date box on leaving: a date in the short form, or nothing (and a beep) for a text that is
// no date. An empty text stays empty.
struct PaivanMuotoilu {
    QString teksti;
    bool hylatty = false;
};
PaivanMuotoilu MuotoilePaiva(const QString &teksti);
// The + and - keys of the joining date: one day on from a valid date, or today.
QString SiirraPaivaa(const QString &teksti, int paivia, const QDate &tanaan);
