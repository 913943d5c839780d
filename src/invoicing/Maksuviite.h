// Payment references in the forms a bank and a printed slip need: the national reference checked
// strictly and grouped for print, and the international RF creditor reference (ISO 11649) made from
// it and read back. The check digit itself comes from Viite.h.
#pragma once

#include <QString>

// The national reference as a bank reads it: blanks and leading zeros gone, "00000000000000001232"
// and "12 34561" give "1232" and "1234561". Nothing else is changed, so a bad reference stays bad.
QString KansallinenViiteKoneelle(const QString &viite);

// Whether a bank accepts the text as a national reference: after KansallinenViiteKoneelle only
// digits, 4–20 of them, the last the 7-3-1 check digit of the others. "12 34561" and "12344" are
// valid; "13" (too short), "12345" (wrong check digit) and "12A44" are not.
bool KansallinenViiteOnKelvollinen(const QString &viite);

// A national reference grouped in fives from the right for print: "1234561" → "12 34561",
// "55958224329467 1" → "55958 22432 94671". Text that is not digits comes back without blanks.
QString KansallinenViiteTulosteeseen(const QString &viite);

// The RF reference whose body is the national reference: "1234561" → "RF341234561",
// "13013" → "RF8413013". Empty when the national reference is not valid.
QString RfViiteKansallisesta(const QString &viite);

// The RF reference for any body of 1–21 letters and digits (ISO 11649): "539007547034" →
// "RF18539007547034". Empty when the body is empty, too long or holds other characters.
QString RfViiteRungosta(const QString &runko);

// Whether the text is an RF reference: "RF", two check digits, a body of 1–21 letters and
// digits, in all at most 25; the whole checks to 1 mod 97. Blanks and lower case are allowed:
// "RF34 1234 561" and "rf341234561" are valid, "RF35 1234 561" is not.
bool RfViiteOnKelvollinen(const QString &rf);

// An RF reference in machine form, blanks gone and upper case: "rf34 1234 561" → "RF341234561".
// No check: use RfViiteOnKelvollinen for that.
QString RfViiteKoneelle(const QString &rf);

// The national reference inside a valid RF reference: "RF34 1234 561" → "1234561". Empty when
// the RF reference is not valid or its body is not a valid national reference.
QString KansallinenViiteRfViitteesta(const QString &rf);

// An RF reference grouped in fours from the left for print: "RF341234561" → "RF34 1234 561".
QString RfViiteTulosteeseen(const QString &rf);

// Either kind for print, told apart by the leading "RF": "RF18539007547034" →
// "RF18 5390 0754 7034", "1234561" → "12 34561".
QString MaksuviiteTulosteeseen(const QString &viite);

// Whether the text is a valid reference of either kind.
bool MaksuviiteOnKelvollinen(const QString &viite);
