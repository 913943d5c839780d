// A list of rows (item data and text) as a model, so that a view or a list box of every member of
// the largest register fills at once, scrolls without item widgets, and completes typed text.
#pragma once

#include "core/ListaRivi.h"

#include <QAbstractListModel>
#include <QVector>

class ListaMalli : public QAbstractListModel {
public:
    explicit ListaMalli(QObject *parent = nullptr) : QAbstractListModel(parent) {}

    void aseta(QVector<ListaRivi> rivit)
    {
        beginResetModel();
        m_rivit = std::move(rivit);
        endResetModel();
    }
    qint64 id(int rivi) const { return m_rivit.value(rivi).id; }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rivit.size()); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid() || index.row() >= m_rivit.size())
            return {};
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return m_rivit[index.row()].teksti;
        if (role == Qt::UserRole)
            return m_rivit[index.row()].id;
        return {};
    }

private:
    QVector<ListaRivi> m_rivit;
};
