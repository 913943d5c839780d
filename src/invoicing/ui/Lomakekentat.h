// The small fields of the invoice windows' row panels.
#pragma once

#include <QCheckBox>
#include <QLineEdit>

namespace lomake {

// A text field with its name and length; an amount field (given a width) is narrow and right-aligned.
inline QLineEdit *kentta(QWidget *parent, const QString &nimi, int pituus, int leveys = 0)
{
    auto *t = new QLineEdit(parent);
    t->setObjectName(nimi);
    t->setMaxLength(pituus);
    if (leveys > 0) {
        t->setMaximumWidth(leveys);
        t->setAlignment(Qt::AlignRight);
    }
    return t;
}

inline QCheckBox *ruutu(QWidget *parent, const QString &nimi, const QString &teksti = {}, const QString &vihje = {})
{
    auto *c = new QCheckBox(teksti, parent);
    c->setObjectName(nimi);
    c->setToolTip(vihje);
    return c;
}

} // namespace lomake
