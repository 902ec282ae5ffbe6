#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

#include "apps/samplepictures/Scene.h"

// Draws the sample content, picture by picture, and has `k4ctl sequence make` make sequences of
// it: sample_pictures K4CTL FOLDER.

namespace {

using k4sample::Canvas;
using k4sample::Scene;
using k4sample::SceneSet;

constexpr int kLongest = 120'000;  // milliseconds; a sequence takes a fraction of a second

QString SignType(const SceneSet& set) {
    return QStringLiteral("%1x%2.%3.%4")
        .arg(set.rows)
        .arg(set.columns)
        .arg(QLatin1String(set.color), QLatin1String(set.pixel));
}

bool DrawFrames(const SceneSet& set, const Scene& scene, const QDir& folder, QStringList& files) {
    for (int frame = 0; frame < scene.frames; ++frame) {
        QImage picture(set.columns, set.rows, QImage::Format_RGB32);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        Canvas canvas{painter, set.columns, set.rows, frame, scene.frames};
        scene.draw(canvas);
        painter.end();
        files << folder.filePath(QStringLiteral("%1.png").arg(frame));
        // Fast to write: the files live for a moment.
        if (!picture.save(files.last(), "png", 100))
            return false;
    }
    return true;
}

bool MakeSequence(const QString& k4ctl, const SceneSet& set, const Scene& scene,
                  const QString& file, const QStringList& images) {
    QStringList arguments{QStringLiteral("sequence"),
                          QStringLiteral("make"),
                          file,
                          QStringLiteral("--force"),
                          QStringLiteral("--size"),
                          QStringLiteral("%1x%2").arg(set.rows).arg(set.columns),
                          QStringLiteral("--color"),
                          QLatin1String(set.color),
                          QStringLiteral("--pixel"),
                          QLatin1String(set.pixel),
                          QStringLiteral("--dwell"),
                          QLatin1String(scene.dwell),
                          QStringLiteral("--keywords"),
                          QLatin1String(scene.keywords),
                          QStringLiteral("--notes"),
                          QLatin1String(scene.notes)};
    arguments << images;
    for (const char* each : scene.further)
        arguments << QLatin1String(each);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(k4ctl, arguments);
    return process.waitForFinished(kLongest) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

bool MakeScene(const QString& k4ctl, const SceneSet& set, const Scene& scene, const QDir& folder) {
    const QString library = SignType(set) + QLatin1String(".Sign/") + QLatin1String(scene.library) +
                            QLatin1String(".Lib");
    const QTemporaryDir pictures;
    QStringList images;
    return folder.mkpath(library) && pictures.isValid() &&
           DrawFrames(set, scene, QDir(pictures.path()), images) &&
           MakeSequence(k4ctl, set, scene,
                        folder.filePath(library + QLatin1Char('/') + QLatin1String(scene.name) +
                                        QLatin1String(".SQ4")),
                        images);
}

/// What an earlier version made must not stay.
void RemoveFormer(const QDir& folder) {
    for (const QString& type : folder.entryList({QStringLiteral("*.Sign")}, QDir::Dirs))
        QDir(folder.filePath(type)).removeRecursively();
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("sample_pictures K4CTL FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(arguments[2]);
    RemoveFormer(folder);
    for (const auto& sets : {k4sample::StadiumScenes(), k4sample::TowerScenes(),
                             k4sample::HarbourScenes(), k4sample::ArchiveScenes()})
        for (const SceneSet& set : sets)
            for (const Scene& scene : set.scenes)
                if (!MakeScene(arguments[1], set, scene, folder)) {
                    std::fprintf(stderr, "sample_pictures: %s can't be made\n", scene.name);
                    return 1;
                }
    return 0;
}
