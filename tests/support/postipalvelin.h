// A real SMTP server on loopback for the mail tests (aiosmtpd), and a reader of what it received
// that decodes each message with Python's e-mail parser, as a mail reader would.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace testi {

struct PalvelimenAsetus {
    QStringList hylattavat; // addresses the server refuses at RCPT
    QString kayttaja;       // with a user the server demands a login
    QString salasana;
    QString varmenne, avain; // with these the server demands STARTTLS (or speaks SMTPS)
    bool smtps = false;
};

// A self-signed certificate for 127.0.0.1 and localhost, made with openssl in `kansio`.
struct Varmenne {
    QString varmenne;
    QString avain;
};
Varmenne teeVarmenne(const QString &kansio);

// A message as the server stored it.
struct Saapunut {
    QByteArray raaka;       // the bytes after the transport's dot-stuffing was undone
    QJsonObject kirjekuori; // mail_from, rcpt_tos, peer [host, port], login
    QJsonObject luettu;     // postiluku.py: subject, from, to, body, attachments, max_line …
};

class Postipalvelin {
public:
    explicit Postipalvelin(const PalvelimenAsetus &asetus = {});
    ~Postipalvelin();
    Postipalvelin(const Postipalvelin &) = delete;
    Postipalvelin &operator=(const Postipalvelin &) = delete;

    // False (and why in virhe()) when the server did not start.
    bool kaynnissa() const { return m_portti > 0; }
    QString virhe() const { return m_virhe; }
    int portti() const { return m_portti; }

    // The messages received so far, in order.
    QList<Saapunut> viestit() const;

private:
    QTemporaryDir m_kansio;
    QProcess m_prosessi;
    int m_portti = 0;
    QString m_virhe;
};

// A port on loopback where nobody listens (it was free a moment ago).
int vapaaPortti();

// Decodes one stored message file with postiluku.py.
QJsonObject lueViesti(const QString &eml);

// The support folder's Python scripts.
QString tukiskripti(const QString &nimi);

} // namespace testi
