// The workstation's settings in the INI file, and the club keys an older release kept there.
#pragma once

#include <QString>

// The demonstration database's path in the program's folder.
QString OletusTietokanta();

void LueIniAsetukset(const QString &tiedosto = {}); // empty: the workstation's usual file
// The club keys from the INI file of an older release, into the globals.
void LueVanhatAsetukset();
