// Code 128 barcodes and QR codes drawn as vectors, so that they stay sharp in a PDF and at any
// printer resolution. The symbol fills its area with the quiet zones a scanner needs: a QR code
// keeps its square shape in the middle of the area, a barcode stretches across it.
#pragma once

#include "reports/Asiakirja.h"

class QPainter;

// Paints the symbol of a Viivakoodi or QrKoodi item; false when the content cannot be encoded
// (e.g. a character that Code 128 cannot carry) and nothing was painted.
bool PiirraKoodi(QPainter &p, const Tulostekohde &k);
