#pragma once

#include <QPainter>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

namespace k4sample {

/// One picture that is being drawn, on black.
struct Canvas {
    QPainter& painter;
    int columns;
    int rows;
    int frame;   ///< from 0
    int frames;  ///< how many there will be

    /// How far the sequence has gone, from 0 to less than 1.
    double Time() const { return static_cast<double>(frame) / frames; }
    QRectF All() const { return {0, 0, static_cast<double>(columns), static_cast<double>(rows)}; }
};

/// One sequence of the sample content.
struct Scene {
    const char* library;
    const char* name;  ///< of the file, without its ending
    int frames;
    const char* dwell;  ///< as `k4ctl sequence make --dwell` takes it
    const char* keywords;
    const char* notes;
    void (*draw)(Canvas&);
    std::vector<const char*> further = {};  ///< further arguments of `k4ctl sequence make`
};

/// The sequences of one sign type.
struct SceneSet {
    int rows;
    int columns;
    const char* color;
    const char* pixel;
    std::vector<Scene> scenes;
};

/// The stadium's Main Board.
SceneSet MainBoardScenes();
/// All signs of the stadium.
std::vector<SceneSet> StadiumScenes();
/// The signs of the tower.
std::vector<SceneSet> TowerScenes();
/// The signs of the harbour.
std::vector<SceneSet> HarbourScenes();
/// Signs that hang nowhere any more; their sequences are kept.
std::vector<SceneSet> ArchiveScenes();

}  // namespace k4sample
