// Painting a laid-out document. The painter's coordinates must be twips on the paper (see
// Asiakirja.h); PDF files are written at 1440 dots per inch, so there a twip is a dot.
#pragma once

#include "reports/Asiakirja.h"

class QPainter;

void PiirraSivu(QPainter &p, const Asiakirja &d, int sivu);

// Writes the whole document as a PDF file. The file appears whole or not at all; throws
// RaporttiVirhe when it cannot be written.
void KirjoitaPdf(const Asiakirja &d, const QString &polku);
