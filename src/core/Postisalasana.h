// The mail server's password. It is kept in the desktop's keyring; where no keyring answers (no
// Secret Service running, a session without a desktop) in the user's own INI file, readable by
// the user alone, and the user is told so once. Never in the club's database: that file is backed
// up and sent to support.
#pragma once

#include <QString>

// The account a password belongs to: "user@server".
QString PostitilinTunnus(const QString &kayttaja, const QString &palvelin);

// The stored password of the account, empty when none.
QString LuePostisalasana(const QString &kayttaja, const QString &palvelin);

// Stores the password of the account (an empty one removes it). False when it could be stored
// nowhere; the user has been told why.
bool TallennaPostisalasana(const QString &kayttaja, const QString &palvelin, const QString &salasana);
