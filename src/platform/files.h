// Files and folders, and where the program keeps its own.
#pragma once

#include <QString>

namespace files {

bool FileExists(const QString &path);
bool FolderExists(const QString &path);
// Creates the folder with its parents; false when that cannot be done.
bool ensureFolder(const QString &path);

// $XDG_DATA_HOME/Vonari (default ~/.local/share/Vonari): demo1.mdb, lasku.txt, karhu.txt,
// mallit/malli.mdb and the user's own report files. Without a trailing slash.
QString programFolder();
// $XDG_CONFIG_HOME/Vonari/Vonari.ini
QString iniFilePath(const QString &iniName);
// The user's documents folder + "/Vonari"
QString documentsFolder();
// documents folder + "/Vonari/Varmuuskopiot/"
QString defaultBackupFolder();
// Joins a folder and a file name with exactly one slash.
QString joinPath(const QString &folder, const QString &name);
// The part of a path behind its last slash.
QString fileNamePart(const QString &path);

// Whether the owner may write the file; a missing file is not read-only.
bool isReadOnly(const QString &path);
// Gives the owner write permission; false on failure.
bool makeWritable(const QString &path);

} // namespace files
