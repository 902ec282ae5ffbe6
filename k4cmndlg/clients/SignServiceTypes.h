#pragma once

#include <cstddef>
#include <cstdint>

#include "k4cmndlg/k4cmncore_export.h"

/// How a sequence is played. The play param that travels with it belongs to the service.
/// 11 and 12 are valid and have no name.
enum tag_K4_PLAY_SEQ_MODE : std::int32_t {
    K4_PLAY_SEQ_NONE = 0,
    K4_PLAY_SEQ_CONTINUOUS = 1,
    K4_PLAY_SEQ_SINGLE_STEP = 2,
    K4_PLAY_SEQ_SEL_FRAME = 3,
    K4_PLAY_SEQ_NUM_TIMES = 4,
    K4_PLAY_SEQ_PLAY_STOP = 5,
    K4_PLAY_SEQ_PLAY_BLANK = 6,
    K4_PLAY_SEQ_PLAY_VIDEO = 7,
    K4_PLAY_SEQ_PLAY_FRAME = 8,
    K4_PLAY_SEQ_PLAY_NEXT = 9,
    K4_PLAY_SEQ_PLAY_CAL = 10,
};

/// The greatest play mode that a reply of the service may carry.
inline constexpr std::int32_t K4_PLAY_SEQ_LAST = 12;

/// The names of the play modes, indexed by the value and closed by a null entry.
extern K4CMNCORE_EXPORT const char* const K4PlaySeqModeNames[];

/// A sign's dimming mode, and what accompanies it.
enum tag_K4_SIGN_DIM_MODE : std::int32_t {
    K4_SIGN_DIM_MANUAL_0 = 0,          ///< shown as manual
    K4_SIGN_DIM_MANUAL_1 = 1,          ///< shown as manual
    K4_SIGN_DIM_PHOTOCELL = 2,         ///< with the photocell offset, -64 to 64
    K4_SIGN_DIM_REMOTE_PHOTOCELL = 3,  ///< with nothing
    K4_SIGN_DIM_SCHEDULED = 4,         ///< with nothing
    K4_SIGN_DIM_MANUAL = 5,            ///< with the manual dimming level, 0 to 255
};

inline constexpr std::int32_t K4_DIM_LEVEL_MIN = 0;
inline constexpr std::int32_t K4_DIM_LEVEL_MAX = 255;
inline constexpr std::int32_t K4_DIM_OFFSET_MIN = -64;
inline constexpr std::int32_t K4_DIM_OFFSET_MAX = 64;

/// The most windows that a sign has. They are numbered from 1.
inline constexpr std::uint32_t K4_MAX_SIGN_WINDOWS = 16;

/// The room for the name of a sequence or a schedule in what the service tells, in bytes.
inline constexpr std::uint32_t K4_SEQUENCE_NAME_ROOM = 261;

/// The tags of a display queue's entries.
inline constexpr std::uint32_t K4_QUEUE_SEQUENCE = 1;
inline constexpr std::uint32_t K4_QUEUE_WINDOW_ENABLE = 2;
inline constexpr std::uint32_t K4_QUEUE_WINDOW_MOVE = 3;

/// One entry of a sign's display queue: a tag, and what the tag says in one of two views of the
/// same storage.
struct K4_DISPLAY_QUEUE {
    /// Used by tag 1.
    struct Sequence {
        char szSequence[K4_SEQUENCE_NAME_ROOM];  ///< name of the sequence, zero-terminated
        tag_K4_PLAY_SEQ_MODE ePlayMode;          ///< how to play it
        std::uint32_t dwPlayParam;               ///< the mode's number
    };
    /// Used by tags 2 and 3.
    struct Window {
        std::uint32_t dwWindow;  ///< number of the sign window
        union {
            std::int32_t bOpen;   ///< tag 2: 1 to open, 0 to close
            std::uint32_t dwRow;  ///< tag 3: row, counted from 0
        };
        std::uint32_t dwCol;  ///< tag 3: column, counted from 0
    };

    std::uint32_t dwType;  ///< 1 a sequence to play, 2 a window to open or close, 3 one to move
    union {
        Sequence sequence;
        Window window;
    };
};

static_assert(offsetof(K4_DISPLAY_QUEUE, sequence) == 4);
static_assert(offsetof(K4_DISPLAY_QUEUE, window) == 4);
static_assert(offsetof(K4_DISPLAY_QUEUE::Window, bOpen) == 4);
static_assert(offsetof(K4_DISPLAY_QUEUE::Window, dwRow) == 4);
static_assert(offsetof(K4_DISPLAY_QUEUE::Window, dwCol) == 8);
