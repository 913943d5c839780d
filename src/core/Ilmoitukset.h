// The program's own message boxes and questions, titled with its name, through the dialogs seam.
#pragma once

#include <QString>

// Information box with OK, titled AppName.
void Ilmoita(const QString &text);
// The same with the stop icon.
void IlmoitaVirhe(const QString &text);
// Yes/No question titled AppName; true on Yes.
bool Kysy(const QString &text);
