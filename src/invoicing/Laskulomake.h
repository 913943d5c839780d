// The fields of an invoice window as the user has typed them. A window reads its controls into
// one of these; the invoice run and a template's apply rule work on it, and the window writes the
// applied values back. Texts stay texts: the run checks and converts them itself.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <array>

// The header that every invoice window has.
struct LaskunYlatiedot {
    QString cmbMaksunOtsake;
    QString tLaskunPaiva;
    QString tLaskunErapaiva;
    QString tAiheTeksti; // "Tilisiirron teksti:"
    QString tLisatietoja;
    bool chkJasenmaksu = false;
    bool chkHenkKohtViite = false;
    bool chkEiViitetta = false;
    bool chkEiLoppusummaa = false;
    bool chkVainValittuTilinumero = false;
    // The entries of cmbTilinumerot (an empty line and the club's two accounts) and the chosen one.
    QStringList cmbTilinumerot;
    int cmbTilinumerotValinta = 0;

    QString valittuTilinumero() const
    {
        return cmbTilinumerotValinta >= 0 && cmbTilinumerotValinta < cmbTilinumerot.size()
            ? cmbTilinumerot.at(cmbTilinumerotValinta)
            : QString();
    }
};

// Who is invoiced: the entry of cmbNimet. Item data 0 is "Kaikki", a negative one an attribute
// (its piID negated), a positive one a person's jrID.
struct LaskunSaajat {
    bool valittu = false;   // the box has a selection
    qint64 tunniste = 0;    // the selection's item data
    QString teksti;         // the box's text as it stands
    bool chkEiPerheellisille = false;
    bool chkMuille = false;
};

struct PerusLaskurivi {
    bool chkRivi = false;
    QString tRiviTeksti;
    QString tRiviSumma;
};

// frmMaksujenLuonti: the plain run, four rows.
struct MaksujenLuontiLomake : LaskunYlatiedot {
    std::array<PerusLaskurivi, 4> rivit;
    QString tSumma; // "Loppusumma:", kept up by the window and stored as every invoice's total
    LaskunSaajat saajat;
};

// frmPROMaksujenLuonti: the plain run with a sales type (an ml row, 0 for none) on each row.
struct ProMaksujenLuontiLomake : MaksujenLuontiLomake {
    std::array<qint64, 4> cmbMyyntiLaji{};
};

// frmPerhelasku: the classes at 0 to 7 and the one price per family at 8, then two free rows.
struct PerheLuokkarivi {
    bool chkPerheLuokka = false;
    QString tSumma;      // unit price
    QString tAiheTeksti;
    bool chkNimet = false;
    bool chkNollat = false;
};

struct PerheLomake : LaskunYlatiedot {
    std::array<PerheLuokkarivi, 9> luokat;
    std::array<PerusLaskurivi, 2> lisarivit;
    LaskunSaajat saajat;
};

// frmOminLasku: four rows priced from the members' attribute values.
struct OminaisuusLaskurivi {
    qint64 cmbOminaisuus = 0; // the chosen entry's item data: a piID, 0 for "---"
    bool chkLkm = false;
    bool chkHinta = false;
    bool chkNollat = false;
    QString tAHinta;
    QString tLkm;
    QString tMinimi;
    QString tAiheTeksti;
};

struct OminaisuusLomake : LaskunYlatiedot {
    std::array<OminaisuusLaskurivi, 4> rivit;
    LaskunSaajat saajat;
};
