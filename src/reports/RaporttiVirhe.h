// The one error of the report engine: a Finnish sentence fit to show the user as it stands.
#pragma once

#include <QString>
#include <stdexcept>

class RaporttiVirhe : public std::runtime_error {
public:
    explicit RaporttiVirhe(const QString &viesti)
        : std::runtime_error(viesti.toStdString()), m_viesti(viesti) {}
    QString viesti() const { return m_viesti; }

private:
    QString m_viesti;
};
