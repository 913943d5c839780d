// The "Ominaisuudet" page. The attribute page plugs in here: the page itself, the member it
// shows, whether it holds a value not yet stored, and the store of that value. A change of a
// value on the page calls AloitaMuokkaus(), as any edit of the member does. Until the page is
// plugged in, a blank page stands in its place.
#include "members/ui/frmJasen.h"

#include <QWidget>

QWidget *frmJasen::LuoOminaisuusSivu() { return new QWidget; }

void frmJasen::NaytaOminaisuudet(qint64) {}

bool frmJasen::bPiirreMuuttunut() const { return false; }

void frmJasen::TallennaPiirreArvo() {}
