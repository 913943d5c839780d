// The checks an invoice run makes before it writes anything, in the order the user meets them.
// The first that fails is the answer: its message, and the field the window puts the focus in.
#pragma once

#include "invoicing/Laskulomake.h"
#include "platform/database.h"

#include <QDate>
#include <optional>

struct Laskutusvirhe {
    QString viesti;
    QString kentta; // the control to focus; empty when none
};

// The header's dates, read once they have passed.
struct LaskunPaivat {
    QDate laskupaiva;
    QDate erapaiva;
};

// The member window closed, no open batch, the invoice number above every number in use, the
// heading at most 30 characters, both dates valid. `jasenikkunaAuki`: the member window holds a
// member that the run may change.
enum class Tarkistukset {
    Kaikki,
    Myyntilaji, // the sales-type run: no member-window check, no invoice-number rule
};
std::optional<Laskutusvirhe> TarkistaYlatiedot(db::Database &db, const LaskunYlatiedot &y, bool jasenikkunaAuki,
                                                LaskunPaivat *paivat, Tarkistukset mitka = Tarkistukset::Kaikki);

// The name box: a selection, and "Kaikki" only as the list's own entry, not as typed text.
std::optional<Laskutusvirhe> TarkistaSaajat(const LaskunSaajat &s);

// The warnings of a date field when the user leaves it; they stop nothing. `erapaivaKentta`:
// the field left was the due date's.
QStringList PaivaVaroitukset(bool erapaivaKentta, const QDate &laskupaiva, const QDate &erapaiva, const QDate &tanaan);
