// The e-mail invoice templates: a plain text file merged with one invoice. Outside the tokens
// and the row block the template is copied as it stands, so it decides the whole look of the
// e-mail. Everything here works on text already read; the values come as the e-mail shows them.
#pragma once

#include "email/Tunnisteet.h"

#include <QByteArray>
#include <QList>
#include <QString>

// The template file's bytes as text: UTF-8 when they are valid UTF-8 (a byte order mark
// dropped), otherwise Windows-1252, in which the older templates were written.
QString PohjaTekstiksi(const QByteArray &tavut);

// The club, from the settings.
struct Laskuttaja {
    QString nimi, osoite, postinro, postitoimi, puh, fax, email, internet, ytunnus;
};

struct Maksaja {
    QString sukunimi, etunimi, osoite, postinro, postitoimi;
};

struct Tilit {
    QString tili1, tili2;
};

// The invoice's own six values, already as text.
struct LaskunTiedot {
    QString otsake, loppusumma, laskupaiva, erapaiva, viitenumero, laskunumero;
};

// One invoice row: date, text and amount as the e-mail shows them.
struct cInvoiceRow {
    QString paiva, teksti, summa;
};

struct Sahkopostilasku {
    Maksaja maksaja;
    Tilit tilit;
    LaskunTiedot lasku;
    QList<cInvoiceRow> rivit;
    QString lisatieto; // the payment terms text
};

// The text trimmed and wrapped to the width: a line break in the text ends a line, otherwise
// whole words go on while they fit; a word longer than the width has a line of its own. Lines
// are joined with CR LF. A width of 0 or less only joins the text's own lines so.
QString RivitaTeksti(const QString &teksti, int leveys);

// The merge steps, each replacing its own tokens in the text.
QString KorvaaLaskuttaja(const QString &teksti, const Laskuttaja &l);
QString KorvaaMaksaja(const QString &teksti, const Maksaja &m);
QString KorvaaTilit(const QString &teksti, const Tilit &t);
QString KorvaaLasku(const QString &teksti, const LaskunTiedot &l);
// The row block "<LASKURIVIT>" … "</LASKURIVIT>" (tags in any case) replaced by its pattern
// once for each row, each piece ending in CR LF. When RIVIAIHE has a width the row text is
// wrapped to it, and each further line repeats the pattern with an empty date and amount. A
// text without both tags, or with the end tag first, is returned as it is.
QString KorvaaLaskurivit(const QString &teksti, const QList<cInvoiceRow> &rivit);
QString KorvaaLisatieto(const QString &teksti, const QString &lisatieto);

// One invoice merged into the template: every step above in one pass, so that a value holding
// a token (a member called "<LASKUNUMERO:0>") comes out as it was typed.
QString YhdistaLasku(const QString &pohja, const Laskuttaja &laskuttaja, const Sahkopostilasku &lasku);
