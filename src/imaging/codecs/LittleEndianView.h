#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <optional>

namespace kestrio {

/// Numbers of a file, by their offset in bytes; none where the file ends before.
class LittleEndianView {
  public:
    explicit LittleEndianView(QByteArrayView bytes) : bytes_(bytes) {}

    template <typename Integer>
    std::optional<Integer> at(qint64 offset) const {
        if (offset < 0 || offset > bytes_.size() - qsizetype(sizeof(Integer))) return {};
        return qFromLittleEndian<Integer>(bytes_.data() + offset);
    }
    qint64 size() const { return bytes_.size(); }

  private:
    QByteArrayView bytes_;
};

}  // namespace kestrio
