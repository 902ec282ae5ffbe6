#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

namespace k4suite {

/// Gives a file other content, all of it or none: until everything has come through to the disk,
/// the file that was there stays as it was.
/// @param file made for the path, not open yet; its errorString() tells what failed.
/// @return whether the file has the new content.
inline bool WriteWholeFile(QSaveFile& file, const QByteArray& bytes) {
    // Without a buffer of its own each write tells of itself: committing doesn't notice one that
    // failed before.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 count = file.write(bytes.constData() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += count;
    }
    return file.commit();
}

}  // namespace k4suite
