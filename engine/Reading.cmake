# The reading half: files to sample arrays.
target_sources(engine PRIVATE
    AviCodec.cpp
    AviFile.cpp
    AviInput.cpp
    AviWalk.cpp
    ChainedVorbis.cpp
    CompressedFile.cpp
    CompressedReader.cpp
    Converter.cpp
    DecodeAhead.cpp
    FfmpegDecoder.cpp
    FfmpegInput.cpp
    FileReader.cpp
    FileWindow.cpp
    FrameConverter.cpp
    Mp3Packet.cpp
    PacketBatchDecoder.cpp
    PacketCount.cpp
    PacketDecoder.cpp
    Preroll.cpp
    SourceFile.cpp
    WavLayout.cpp
    WavReader.cpp
    WaveForm.cpp
)
