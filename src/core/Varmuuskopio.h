// Backup and reorganisation of the club's database.
#pragma once

// Backup and reorganisation of DatabasePath. True when both succeeded and BackupDate was written.
bool TeeVarmuuskopio();
