// What happens to the open batch after a run: the move to history and the delete. Each commits
// as one transaction: stopped or failed, the batch is where it was, the counter too.
#pragma once

#include "platform/ajo.h"

// The window that moves or deletes the batch. The window decides the kind flags of the history
// rows for the whole batch, and the sales-type window deletes without the member-window check
// and without giving the fee state back.
enum class Laskuikkuna { Perus, Perhe, Ominaisuus, Myyntilaji };

// Moves every open invoice to jmhist; the rows stay in jmRivi under the same id. Returns the
// message to show: "Laskut siirretty historiaan." or the failure in three lines.
QString SiirraHistoriaan(const Ajo &ajo, Laskuikkuna ikkuna);

// Deletes the open batch with its rows after the user's Yes, gives members whose fee was paid
// before the invoice their paid state back and takes the invoice counter back by the number
// deleted. Returns the message to show; empty when the user said No.
QString PoistaLisatytLaskut(const Ajo &ajo, Laskuikkuna ikkuna, bool jasenikkunaAuki);
