#include "members/ui/HakuMalli.h"

void HakuMalli::aseta(QVector<HakuRivi> rivit)
{
    beginResetModel();
    m_rivit = std::move(rivit);
    endResetModel();
}

int HakuMalli::rowCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : int(m_rivit.size()); }

QVariant HakuMalli::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rivit.size())
        return {};
    const HakuRivi &r = m_rivit[index.row()];
    switch (role) {
    case Qt::DisplayRole: {
        QString t = r.teksti;
        t.replace(QLatin1String("\r\n"), QLatin1String(" "));
        t.replace(QLatin1Char('\n'), QLatin1Char(' '));
        return t;
    }
    case Qt::EditRole:
    case TekstiRooli: return r.teksti;
    case IdRooli: return r.jrID;
    default: return {};
    }
}
