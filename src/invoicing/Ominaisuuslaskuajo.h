// The attribute run: each person's rows priced from the values of his attributes (quantity ×
// the window's unit price, price × the window's quantity, a minimum), one invoice each when the
// total is above zero or zero invoices are asked for. The batch commits as one transaction.
#pragma once

#include "invoicing/Jasenmaksuajo.h"
#include "platform/currency.h"

#include <QVariant>

struct OminaisuusAjo : OminaisuusLomake {
    bool chkTulostaNollat = false; // "Tulosta nolla summaiset laskut"
};

Laskutustulos LisaaOminaisuuslaskut(const Ajo &ajo, const OminaisuusAjo &lomake, bool jasenikkunaAuki);

// One row's amount from one attribute value: each product formed in double precision and then
// made money, the minimum applied last. Null values and texts that are no number add nothing.
Currency OminaisuusrivinSumma(const OminaisuusLaskurivi &rivi, const QVariant &ptValLong, const QVariant &ptValCurrency);
