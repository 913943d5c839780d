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

void MaalaaTeksti(QLineEdit *t);
bool IsFormLoaded(const QString &name);
void ComboAutoComplete(QComboBox *c, int keyCode);
void ComboValitseItemData(QComboBox *c, qint64 id);
void ComboValitseTeksti(QComboBox *c, const QString &text, const QString &message, int fallback);
void ComboTarkistaTeksti(QComboBox *c);
void ListPoistaItemData(QListWidget *l, qint64 id);
bool AvaaTiedosto(QWidget *form, const QString &fileName);
void VainNumeroita(QLineEdit *t);
void VainKokonaisluku(QLineEdit *t);
