// The merge tokens of the e-mail templates and row texts: "<" + name + ":" + width + ">", the name
// in any case. Width 0 (or no number) puts the value in as it stands; a larger width cuts a longer
// value to its left part or pads a shorter one with blanks after it.
#pragma once

#include <QString>

// Every occurrence of the token replaced by the value. A value that itself holds the token is
// not searched again: the merge always ends.
QString KorvaaTunniste(const QString &teksti, const QString &tunniste, const QString &arvo);

// The width of the token's first occurrence; 0 when it is not there or its width is no number.
int TunnisteenLeveys(const QString &teksti, const QString &tunniste);
