// Shared helpers that work on widgets.
#pragma once

#include <QCursor>
#include <QPointer>
#include <QString>

class QWidget;
class QLineEdit;
class QComboBox;
class QListWidget;
class QKeyEvent;

void MouseNormal(QWidget *form);
void MouseWait(QWidget *form);

// Remembers the pointer of the first call and puts it back when the instance goes out of scope.
class cMouseCursor {
public:
    cMouseCursor() = default;
    ~cMouseCursor();
    void SetCursor(QWidget *form, Qt::CursorShape shape);

private:
    QPointer<QWidget> m_form;
    bool m_had = false;
    bool m_hadOverride = false;
    QCursor m_old;
};

// Window placement under FORMS, key = object name + major + minor version.
void LataaIkkunanPaikka(QWidget *form);
void TallennaIkkunanPaikka(QWidget *form);

// Selects the whole text; called when a text box gets the focus.
void MaalaaTeksti(QLineEdit *t);
// Whether a top-level window of exactly that object name exists, shown or hidden.
bool IsFormLoaded(const QString &name);

// A list entry's ItemData is its item data (Qt::UserRole), read as qint64.
// Completes the typed start of the text with the first matching entry, the rest selected;
// call from the key release of an editable combo box.
void ComboAutoComplete(QComboBox *c, int keyCode);
// Selects the entry with that ItemData, or none (index -1).
void ComboValitseItemData(QComboBox *c, qint64 id);
// Selects the entry with exactly that text; otherwise the fallback entry, and the message is
// shown when it is not empty.
void ComboValitseTeksti(QComboBox *c, const QString &text, const QString &message, int fallback);
// Selects the entry whose text matches the typed one in any case; otherwise goes back to the
// entry selected before.
void ComboTarkistaTeksti(QComboBox *c);
void ListPoistaItemData(QListWidget *l, qint64 id);
// Opens the file with the desktop's own program; a relative name is in the program's folder.
bool AvaaTiedosto(QWidget *form, const QString &fileName);
// For number fields, on every change: takes typed characters off while the text is no number
// (VainKokonaisluku: no whole number), the caret then at the end.
void VainNumeroita(QLineEdit *t);
void VainKokonaisluku(QLineEdit *t);
