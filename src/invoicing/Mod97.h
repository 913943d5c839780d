// The mod-97 check shared by IBANs and RF references (ISO 7064 MOD 97-10).
#pragma once

#include <QString>

// The remainder mod 97 of the number the text stands for once every letter is replaced by two
// digits (A=10 … Z=35, either case): "1234561RF00" reads as 12345612715 00 and gives 64.
// -1 when the text is empty or holds anything but ASCII letters and digits.
int Mod97(QStringView teksti);

// Letters and digits only, upper case, blanks gone: "fi21 1234 5600" → "FI2112345600".
// Other characters stay as they are, for the validity checks to refuse.
QString IlmanValejaIsoin(QStringView teksti);
