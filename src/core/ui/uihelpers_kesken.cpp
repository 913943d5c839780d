// Placeholder until the widget helpers land; their owner deletes this file.
#include "core/ui/uihelpers.h"
#include <QLineEdit>
cMouseCursor::~cMouseCursor() {}
void cMouseCursor::SetCursor(QWidget *, Qt::CursorShape) {}
void MouseNormal(QWidget *) {}
void MouseWait(QWidget *) {}
void LataaIkkunanPaikka(QWidget *) {}
void TallennaIkkunanPaikka(QWidget *) {}
void MaalaaTeksti(QLineEdit *t) { t->selectAll(); }
bool IsFormLoaded(const QString &) { return false; }
void ComboAutoComplete(QComboBox *, int) {}
void ComboValitseItemData(QComboBox *, qint64) {}
void ComboValitseTeksti(QComboBox *, const QString &, const QString &, int) {}
void ComboTarkistaTeksti(QComboBox *) {}
void ListPoistaItemData(QListWidget *, qint64) {}
bool AvaaTiedosto(QWidget *, const QString &) { return false; }
void VainNumeroita(QLineEdit *) {}
void VainKokonaisluku(QLineEdit *) {}
