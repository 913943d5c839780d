// Every setting of the program in one table: its key, its type, its default and the store that
// holds it, and the global of MainModule it is read into. Reading goes through this table, so a
// key's name, conversion and default are written down once.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <variant>
#include <vector>

enum class AsetusLaji {
    Teksti,
    Pitka,      // Long: a whole number within 32 bits; no number gives the default
    Kokonais,   // Integer: a whole number within 16 bits
    Totuus,     // any non-zero number is true
    YksiOnTosi, // a Long whose value 1 is true (the choice of two mail routes)
    Laskuri,    // a Long counter with no default: no number keeps what the global holds
    Raha,
    Liukuluku,
    Paiva,      // ISO or Finnish date text
};

// Where a key lives: the workstation's INI file, or the club's database (an older release kept
// the club's keys in the INI file as well; they are read from there only to be moved).
enum class AsetusVarasto { Ini, Kanta };

// How the default is formed: as written, or a file or the folder of the program's own folder.
enum class OletusTapa { Sellaisenaan, OhjelmanTiedosto, OhjelmanKansio };

struct Asetusavain {
    const char *nimi;
    AsetusLaji laji;
    const char *oletus;
    AsetusVarasto varasto;
    std::variant<QString *, long *, int *, bool *, Currency *, double *, QDate *> globaali;
    OletusTapa tapa = OletusTapa::Sellaisenaan;

    QString nimiTekstina() const { return QString::fromLatin1(nimi); }
    // The default as stored text, with the program's folder filled in where it belongs.
    QString oletusTeksti() const;
};

// The whole table, in the order the club's keys are read.
const std::vector<Asetusavain> &Asetusavaimet();
