// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureRatio.h"

#include "support/Starter.h"
#include <QRegularExpression>
#include <limits>
#include <stdexcept>

namespace TestFidelity {

double pictureRatio(const std::string& path, const std::string& reference, const std::string& pixelFormat) {
    // Times restart in both, so that pictures are paired by number whatever the containers' clocks are.
    const std::string same = "format=" + pixelFormat + ",settb=1/1000,setpts=N";
    const std::string graph = "[0:v]" + same + "[a];[1:v]" + same + "[b];[a][b]psnr=shortest=1";
    const auto ended =
        TestSupport::ffmpeg().run({"-nostdin", "-i", path, "-i", reference, "-lavfi", graph, "-f", "null", "-"});
    const QString report = QString::fromStdString(ended->errors);
    const auto found = QRegularExpression(QStringLiteral("PSNR .*average:([0-9.]+|inf)")).match(report);
    if (ended->status != 0 || !found.hasMatch())
        throw std::runtime_error("no ratio of " + path + ": " + report.toStdString());
    const QString average = found.captured(1);
    return average == QLatin1String("inf") ? std::numeric_limits<double>::infinity() : average.toDouble();
}

} // namespace TestFidelity
