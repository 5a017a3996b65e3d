# The reading half: files to sample arrays.
target_sources(engine PRIVATE
    ChainedVorbis.cpp
    CompressedFile.cpp
    CompressedReader.cpp
    Converter.cpp
    DecodeAhead.cpp
    FfmpegDecoder.cpp
    FfmpegInput.cpp
    FileReader.cpp
    FrameConverter.cpp
    Mp3Packet.cpp
    PacketBatchDecoder.cpp
    PacketCount.cpp
    PacketDecoder.cpp
    Preroll.cpp
    SourceFile.cpp
    WavLayout.cpp
    WavReader.cpp
)
