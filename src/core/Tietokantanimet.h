// Names derived from the database's path ("club.mdb" → "club.mdb2", "club.mdbOLD", "club.md2",
// "club.md3"). The two naming schemes are deliberately different.
#pragma once

#include <QDate>
#include <QString>

QString KorjauksenTulos(const QString &kanta);
QString KorjauksenJaannos(const QString &kanta);
QString JarjestelynTulos(const QString &kanta);
QString JarjestelynJaannos(const QString &kanta);
// The backup folder followed by the file-name part of the database's path.
QString VarmuuskopionNimi(const QString &kansio, const QString &kanta);
// The copy taken beside the file before an upgrade changes it ("club-ennen-paivitysta-20240131.mdb").
QString PaivitystaEdeltavaKopio(const QString &kanta, const QDate &paiva);
