// The club's keys and their conversions, shared by the database store and the INI file of an
// older release: both hold the same keys with the same defaults.
#pragma once

#include <QString>
#include <functional>
#include <optional>

using AsetuksenLukija = std::function<QString(const QString &avain, const QString &oletus)>;

// Reads every club key into the globals of MainModule, in the store's order. Returns the text
// to write back under BackupDate when the stored text was no date (today), or nothing.
std::optional<QString> LueSeuranAsetukset(const AsetuksenLukija &lue);

// The text as a whole number within [min, max], rounded half to even as the old conversions
// did; nothing when it is no number or does not fit.
std::optional<qint64> KokonaislukuArvo(const QString &teksti, qint64 min, qint64 max);

// The program's folder followed by a file name, with exactly one slash between.
QString OhjelmanTiedosto(const QString &nimi);
