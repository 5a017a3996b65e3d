#include "engine/Engine.h"

#include "core/Errors.h"
#include "engine/FileEngine.h"
#include "engine/LameFormat.h"
#include "engine/PulsePlayer.h"
#include "engine/TagEngine.h"

namespace {

class RealEngine : public AudioEngine {
public:
    std::unique_ptr<AudioFile> makeFile() override { return std::make_unique<FileEngine>(); }
    std::unique_ptr<Mp3Format> makeMp3Format() override { return std::make_unique<LameFormat>(); }
    std::unique_ptr<AudioTag> makeTag() override { return std::make_unique<TagEngine>(); }
    std::unique_ptr<AudioPlayerStream> makePlayer() override { return makePulsePlayer(); }
    std::unique_ptr<AudioRecordEx> makeRecorder() override { throw EngineError("no recorder"); }
};

}

std::unique_ptr<AudioEngine> makeEngine()
{
    return std::make_unique<RealEngine>();
}
