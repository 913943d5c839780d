// Shared helpers that work on widgets.
#pragma once

#include <QCursor>
#include <QPointer>
#include <QString>

class QWidget;
class QLineEdit;

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
