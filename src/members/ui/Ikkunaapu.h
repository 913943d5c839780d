// What the attribute windows share besides the record-window kit: the choice of an attribute,
// the two-attribute dialog and the beep.
#pragma once

#include "platform/database.h"


class QComboBox;
class QDialog;
class QPushButton;

namespace ikkuna {

// The choice of an attribute in the removing and merging dialogs: a first row " - ", then the
// definitions by name, item data piID.
void TaytaOminaisuusValinta(QComboBox *c, db::Database &db);

// The layout of a dialog that picks two attributes and runs one command on them: two lists
// filled with the attributes, the command button and "Peru" (which closes the dialog).
struct KahdenOminaisuudenLomake {
    QComboBox *eka, *toka;
    QPushButton *toiminto, *peru;
};
struct Valinta {
    const char *nimi;
    QString otsikko;
};
KahdenOminaisuudenLomake RakennaKahdenOminaisuudenLomake(QDialog *d, const Valinta &eka, const Valinta &toka,
                                                         const Valinta &toiminto);

// The beep of refused input.
void Piippaa();

} // namespace ikkuna
