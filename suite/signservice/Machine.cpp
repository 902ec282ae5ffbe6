#include "suite/signservice/Machine.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/settings/NameText.h"
#include "suite/signservice/FileNames.h"
#include "suite/signservice/PictureComposer.h"

namespace k4suite {

namespace {

using k4cmn::Format;

/// The greatest color that a configuration may tell; it has no name.
constexpr std::int32_t kLastColor = 15;

bool HasPossibleSize(const k4cmn::SignSettings& sign) {
    return sign.rows >= 1 && sign.rows <= k4cmn::kMaxSignRows && sign.columns >= 1 &&
           sign.columns <= k4cmn::kMaxSignColumns &&
           std::uint64_t{sign.rows} * sign.columns <= k4cmn::kMaxSignPixels;
}

/// Settings whose technologies no sign has become those of the plainest sign.
SignSetup Cleaned(SignSetup setup) {
    k4cmn::SignSettings& sign = setup.settings;
    if (sign.color < K4_SIGN_COLOR_MONO1 || sign.color > kLastColor)
        sign.color = K4_SIGN_COLOR_MONO1;
    if (sign.pixel < K4_PIXEL_TECH_INCAND || sign.pixel > K4_PIXEL_TECH_LED)
        sign.pixel = K4_PIXEL_TECH_INCAND;
    if (sign.orientation < K4_OUTPUT_ORIENTATION_NORMAL ||
        sign.orientation > K4_OUTPUT_ORIENTATION_ROTATED_MIRRORED)
        sign.orientation = K4_OUTPUT_ORIENTATION_NORMAL;
    return setup;
}

bool IsSmaller(const Sign& one, const Sign& other) {
    const k4cmn::SignSettings& a = one.Settings();
    const k4cmn::SignSettings& b = other.Settings();
    return a.rows <= b.rows && a.columns <= b.columns && (a.rows < b.rows || a.columns < b.columns);
}

}  // namespace

Machine::Machine(const ServiceSetup& setup, const SequenceStore& store,
                 const std::filesystem::path& stateFolder, TimePoint now,
                 std::vector<std::string>& problems)
    : m_name(setup.name), m_firstFlag(static_cast<std::uint32_t>(now.time_since_epoch().count())) {
    for (const SignSetup& sign : setup.signs) {
        const bool isUsable =
            IsFileName(sign.name) && HasPossibleSize(sign.settings) && !Find(sign.name);
        if (isUsable)
            m_posts.push_back(std::make_unique<Post>(
                Sign(Cleaned(sign), store, now), SignStateFile(stateFolder, m_name, sign.name)));
        else
            problems.push_back(
                Format("The sign \"%s\" of the machine \"%s\" was left out: its name "
                       "or its size is not possible.",
                       sign.name.c_str(), m_name.c_str()));
    }
    for (const std::unique_ptr<Post>& post : m_posts) {
        std::string problem;
        const std::optional<SignKept> kept = post->file.Read(problem);
        if (!problem.empty())
            problems.push_back(problem);
        ChooseWindowSigns(post->sign, kept ? &*kept : nullptr, post->sign.Windows());
        if (kept) {
            post->sign.Restore(*kept, now);
            TellEndedSchedule(*kept, post->sign, problems);
        }
        post->flag = m_firstFlag;
    }
}

void Machine::TellEndedSchedule(const SignKept& kept, const Sign& sign,
                                std::vector<std::string>& problems) const {
    if (kept.schedule && !sign.Schedule())
        problems.push_back(Format(
            "The schedule \"%s\" of the sign \"%s\" of the machine \"%s\" was ended: it can't "
            "be read any more.",
            kept.schedule->file.c_str(), sign.Name().c_str(), m_name.c_str()));
}

// A window shows the sign that it showed before. One without takes its turn among the smaller
// signs, or among whatever other signs there are; a sign all alone shows itself.
void Machine::ChooseWindowSigns(const Sign& sign, const SignKept* kept,
                                SignWindows& windows) const {
    std::vector<const Sign*> smaller;
    std::vector<const Sign*> others;
    for (const std::unique_ptr<Post>& post : m_posts) {
        if (&post->sign != &sign || m_posts.size() == 1)
            others.push_back(&post->sign);
        if (IsSmaller(post->sign, sign))
            smaller.push_back(&post->sign);
    }
    const std::vector<const Sign*>& choice = smaller.empty() ? others : smaller;
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const Sign* shown = kept ? Find(kept->windows[window - 1].sign) : nullptr;
        if (!shown)
            shown = choice[(window - 1) % choice.size()];
        windows.SetSign(window, shown->Name(), shown->Settings().rows, shown->Settings().columns);
    }
}

std::string Machine::ListText() const {
    std::string text;
    for (const std::unique_ptr<Post>& post : m_posts)
        text += post->sign.Name() + "\n";
    return text;
}

const Sign* Machine::Find(std::string_view sign) const {
    for (const std::unique_ptr<Post>& post : m_posts)
        if (IsSameName(post->sign.Name(), sign))
            return &post->sign;
    return nullptr;
}

Sign* Machine::Find(std::string_view sign) {
    return const_cast<Sign*>(std::as_const(*this).Find(sign));
}

Machine::Post& Machine::PostOf(const Sign& sign) {
    return **std::find_if(m_posts.begin(), m_posts.end(),
                          [&](const auto& post) { return &post->sign == &sign; });
}

void Machine::AdvanceTo(TimePoint now) {
    for (const std::unique_ptr<Post>& post : m_posts)
        post->sign.AdvanceTo(now);
}

void Machine::Save(std::vector<std::string>& problems) {
    for (const std::unique_ptr<Post>& post : m_posts) {
        std::string problem;
        if (post->sign.TakeChanged() && !post->file.Write(post->sign.Kept(), problem))
            problems.push_back(problem);
    }
}

std::uint32_t Machine::ChangeFlag(const Sign& sign, TimePoint now) {
    Post& post = PostOf(sign);
    const std::uint64_t look = PictureComposer(*this, now).LookOf(sign);
    if (std::exchange(post.lastLook, look) != look)
        ++post.flag;
    return post.flag;
}

std::uint32_t Machine::ScheduleChangeFlag(const Sign& sign) const {
    return m_firstFlag + sign.ScheduleChanges();
}

}  // namespace k4suite
