// The rows of a long member list (a drop-down list of the basic search, the names found) as a
// model, so that a hundred thousand rows cost one vector and no item objects.
#pragma once

#include "members/Jasenhaku.h"

#include <QAbstractListModel>

class HakuMalli : public QAbstractListModel {
    Q_OBJECT
public:
    // The item data: the row's jrID.
    static constexpr int IdRooli = Qt::UserRole;
    // The text as stored; the shown text has its line breaks as spaces.
    static constexpr int TekstiRooli = Qt::UserRole + 1;

    using QAbstractListModel::QAbstractListModel;
    void aseta(QVector<HakuRivi> rivit);
    const QVector<HakuRivi> &rivit() const { return m_rivit; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QVector<HakuRivi> m_rivit;
};
