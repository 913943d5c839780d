// The "Ominaisuudet" page. The attribute page plugs in here: the page itself, the member it
// shows, whether it holds a value not yet stored, and the store of that value (false when it
// failed and the command must stop). A change of a value on the page calls AloitaMuokkaus(),
// as any edit of the member does, and a store the page makes on its own is followed by the
// window's pending family store. Until the page is plugged in, a blank page stands here.
#include "members/ui/frmJasen.h"

#include <QWidget>

QWidget *frmJasen::LuoOminaisuusSivu() { return new QWidget; }

void frmJasen::NaytaOminaisuudet(qint64) {}

bool frmJasen::bPiirreMuuttunut() const { return false; }

bool frmJasen::TallennaPiirreArvo() { return true; }
