// The logic's UTF-8 text and Qt's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace dtb {

[[nodiscard]] inline QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] inline std::string FromQt(const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  return {utf8.constData(), static_cast<std::size_t>(utf8.size())};
}

}  // namespace dtb
