// JSON as the program prints it.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include <QJsonObject>
#include <QString>
#include <boost/rational.hpp>
#include <string>

namespace Cli {

inline QString key(const char* text) {
    return QString::fromUtf8(text);
}
/// "25", "30000/1001".
QString fractionText(const boost::rational<long long>& value);
/// The object on one line, UTF-8, without a line end.
std::string jsonLine(const QJsonObject& object);
/// "type" is "done", "refused", "failed" or "stopped".
QJsonObject outcomeObject(const ExportCore::ExportOutcome& outcome);

} // namespace Cli
