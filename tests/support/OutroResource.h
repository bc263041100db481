// SPDX-License-Identifier: GPL-3.0-or-later
// TestSupport::OutroResource: outros among the application's resources while a test runs.
#pragma once

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QProcess>
#include <QResource>
#include <QString>
#include <QTemporaryDir>

namespace TestSupport {

/// Compiled by the resource compiler EDITOREXPORT_RCC, registered from construction to destruction. Names should differ
/// from test to test: Qt keeps pictures that it has read.
class OutroResource {
public:
    /// The content of "outro.png" by the outro's name.
    explicit OutroResource(const QMap<QString, QByteArray>& pictures) {
        QString list = QStringLiteral("<RCC><qresource prefix=\"/BrandingOutro\">");
        for (auto it = pictures.begin(); it != pictures.end(); ++it) {
            const QString path = folder.filePath(QString::number(count++));
            write(path, it.value());
            list += QStringLiteral("<file alias=\"%1/outro.png\">%2</file>").arg(it.key().toHtmlEscaped(), path);
        }
        write(folder.filePath(QStringLiteral("list.qrc")), (list + QStringLiteral("</qresource></RCC>")).toUtf8());
        const QString tree = folder.filePath(QStringLiteral("tree.rcc"));
        const int code =
            QProcess::execute(QStringLiteral(EDITOREXPORT_RCC), {QStringLiteral("--binary"), QStringLiteral("-o"), tree,
                                                                 folder.filePath(QStringLiteral("list.qrc"))});
        if (code != 0 || !QResource::registerResource(tree))
            qFatal("The resource compiler made no resource");
    }
    ~OutroResource() { QResource::unregisterResource(folder.filePath(QStringLiteral("tree.rcc"))); }
    OutroResource(const OutroResource&) = delete;
    OutroResource& operator=(const OutroResource&) = delete;

    static QByteArray encoded(const QImage& image, const char* format = "PNG") {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format))
            qFatal("A picture cannot be written as %s", format);
        return bytes;
    }
    static QByteArray flat(int width, int height, QRgb colour, const char* format = "PNG") {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(colour);
        return encoded(image, format);
    }

private:
    static void write(const QString& path, const QByteArray& content) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("A resource's content cannot be written");
    }

    QTemporaryDir folder;
    int count = 0;
};

} // namespace TestSupport
