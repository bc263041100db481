#include "Raw.h"

#include <QProcess>
#include <stdexcept>

namespace TestKept {

namespace {

constexpr int DEADLINE = 120'000;

QByteArray bytesOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    const bool ended = process.waitForFinished(DEADLINE) && process.exitCode() == 0;
    const QString complaint = QString::fromUtf8(process.readAllStandardError());
    if (!ended || !complaint.isEmpty())
        throw std::runtime_error((arguments.join(QLatin1Char(' ')) + QLatin1String(": ") + complaint).toStdString());
    return process.readAllStandardOutput();
}

QString output(const char* program, const QStringList& arguments) {
    return QString::fromUtf8(bytesOf(program, arguments));
}

QString text(const std::string& bytes) {
    return QString::fromStdString(bytes);
}

QStringList base(const std::string& path) {
    return {QStringLiteral("-nostdin"), QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
            text(path)};
}

} // namespace

QStringList pictures(const std::string& path, const std::string& pixelFormat) {
    const QString flags = QStringLiteral("accurate_rnd+full_chroma_int+full_chroma_inp+bitexact");
    const QStringList lines =
        output("ffmpeg",
               base(path) + QStringList{QStringLiteral("-map"), QStringLiteral("0:v:0"), QStringLiteral("-fps_mode"),
                                        QStringLiteral("passthrough"), QStringLiteral("-sws_flags"), flags,
                                        QStringLiteral("-pix_fmt"), text(pixelFormat), QStringLiteral("-f"),
                                        QStringLiteral("framemd5"), QStringLiteral("-")})
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QStringList sums;
    for (const QString& line : lines)
        if (!line.startsWith(QLatin1Char('#')))
            sums += line.section(QLatin1Char(','), -1).trimmed();
    return sums;
}

QByteArray bytes(const std::string& path, const std::string& pixelFormat) {
    return bytesOf("ffmpeg",
                   base(path) + QStringList{QStringLiteral("-map"), QStringLiteral("0:v:0"), QStringLiteral("-pix_fmt"),
                                            text(pixelFormat), QStringLiteral("-f"), QStringLiteral("rawvideo"),
                                            QStringLiteral("-")});
}

QString sound(const std::string& path, const std::string& codec) {
    return output("ffmpeg", base(path) + QStringList{QStringLiteral("-map"), QStringLiteral("0:a:0"),
                                                     QStringLiteral("-c:a"), text(codec), QStringLiteral("-f"),
                                                     QStringLiteral("md5"), QStringLiteral("-")})
        .trimmed();
}

QString told(const std::string& path, const std::string& kind, const std::string& entries) {
    return output("ffprobe", {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-select_streams"),
                              text(kind + ":0"), QStringLiteral("-show_entries"), text("stream=" + entries),
                              QStringLiteral("-of"), QStringLiteral("csv=p=0"), text(path)})
        .trimmed();
}

} // namespace TestKept
