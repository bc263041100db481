// SPDX-License-Identifier: GPL-3.0-or-later
// JSON as the program prints it.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
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
/// UTF-8; control characters and direction marks are written as \uNNNN.
QByteArray jsonBytes(const QJsonObject& object, QJsonDocument::JsonFormat format);
/// What is going to be made. Unknown is null.
QJsonObject planObject(const ExportCore::ExportPlan& plan);
/// The first and the last of numbered pictures.
QJsonObject picturesObject(const ExportCore::ExportFacts& facts);
/// The streams that were found in the finished file.
QJsonArray streamsOf(const ExportCore::ExportFacts& facts);
/// "type" is "done", "refused", "failed", "stopped" or "planned".
QJsonObject outcomeObject(const ExportCore::ExportOutcome& outcome);

} // namespace Cli
