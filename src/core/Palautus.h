// Restoring the club's database from a backup.
#pragma once

void Palautus();
