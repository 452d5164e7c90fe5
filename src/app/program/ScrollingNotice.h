#pragma once

#include "core/Published.h"

#include <QObject>
#include <QString>

namespace kestrio {

/// What a long capture says where there is no room for its panel; the tray shows it.
class ScrollingNotice : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(QString, text, {})
};

}  // namespace kestrio
