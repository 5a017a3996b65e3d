// What is in an MP3 file, frame by frame, by its own parser: headers, side information, the encoder's tag.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <stdexcept>
#include <vector>

struct Mp3Frame {
    int kbit = 0;
    int hertz = 0;
    int mode = 0;    ///< 0 stereo, 1 joint stereo, 2 dual channels, 3 mono
    bool isMidSide = false;
    bool hasChecksum = false;
    int emphasis = 0;          ///< 0 none, 1 50/15 microseconds, 3 CCITT J.17
    int reservoirBytes = 0;    ///< bytes of earlier frames that it uses
    bool hasShortBlocks = false;
    QByteArray body;    ///< the frame without its header
};

/// A stream of one MPEG version. The encoder's tag frame is kept apart.
class Mp3Stream {
public:
    explicit Mp3Stream(const QByteArray& bytes)
    {
        for (qsizetype at = 0; at + 4 <= bytes.size();) {
            const Mp3Frame frame = parse(bytes, at);
            const qsizetype size = frame.body.size() + 4;
            const qsizetype mark = 4 + sideBytes(frame);    // the tag frame never has a checksum
            const QByteArray name = bytes.mid(at + mark, 4);
            if (at == 0 && (name == "Xing" || name == "Info"))
                readTag(name, bytes.mid(at + mark));
            else
                frames.push_back(frame);
            at += size;
        }
        if (frames.empty()) throw std::runtime_error("no frames");
    }

    std::vector<Mp3Frame> frames;
    QByteArray tagName;       ///< "Xing", "Info" or empty
    int tagMethod = -1;       ///< 1 constant, 2 average, 3 to 5 the variable methods
    int tagLowpass = -1;      ///< hundreds of Hz
    bool isUnwise = false;    ///< the encoder's own word for unusual settings

    QByteArray sound() const
    {
        QByteArray all;
        for (const Mp3Frame& frame : frames) all += frame.body;
        return all;
    }
    double meanKbit() const
    {
        double sum = 0;
        for (const Mp3Frame& frame : frames) sum += frame.kbit;
        return sum / static_cast<double>(frames.size());
    }

private:
    bool isMpeg1_ = true;

    // Big-endian bits of a frame.
    static int bits(const QByteArray& bytes, qsizetype bit, int count)
    {
        int value = 0;
        for (int i = 0; i < count; ++i, ++bit)
            value = value * 2 + ((static_cast<unsigned char>(bytes.at(bit / 8)) >> (7 - bit % 8)) & 1);
        return value;
    }

    qsizetype sideBytes(const Mp3Frame& frame) const
    {
        if (isMpeg1_) return frame.mode == 3 ? 17 : 32;
        return frame.mode == 3 ? 9 : 17;
    }

    Mp3Frame parse(const QByteArray& bytes, qsizetype at)
    {
        static constexpr int kbits1[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
        static constexpr int kbits2[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
        static constexpr int rates[] = {44100, 48000, 32000};
        const QByteArray header = bytes.mid(at, 4);
        if (bits(header, 0, 11) != 0x7FF || bits(header, 13, 2) != 1)
            throw std::runtime_error("no frame header");
        const int version = bits(header, 11, 2);    // 3 MPEG 1, 2 MPEG 2, 0 MPEG 2.5
        isMpeg1_ = version == 3;
        Mp3Frame frame;
        frame.hasChecksum = bits(header, 15, 1) == 0;
        frame.kbit = (isMpeg1_ ? kbits1 : kbits2)[bits(header, 16, 4)];
        frame.hertz = rates[bits(header, 20, 2)] / (version == 3 ? 1 : version == 2 ? 2 : 4);
        frame.mode = bits(header, 24, 2);
        frame.isMidSide = frame.mode == 1 && bits(header, 26, 1) == 1;
        frame.emphasis = bits(header, 30, 2);
        const int size = (isMpeg1_ ? 144000 : 72000) * frame.kbit / frame.hertz + bits(header, 22, 1);
        if (at + size > bytes.size()) throw std::runtime_error("a frame is cut off");
        frame.body = bytes.mid(at + 4, size - 4);
        readSide(frame);
        return frame;
    }

    void readSide(Mp3Frame& frame) const
    {
        const int channels = frame.mode == 3 ? 1 : 2;
        const int start = frame.hasChecksum ? 16 : 0;
        frame.reservoirBytes = bits(frame.body, start, isMpeg1_ ? 9 : 8);
        const int head = isMpeg1_ ? (channels == 1 ? 18 : 20) : (channels == 1 ? 9 : 10);
        const int granuleBits = isMpeg1_ ? 59 : 63;
        const int flagAt = isMpeg1_ ? 33 : 38;
        for (int i = 0; i < (isMpeg1_ ? 2 : 1) * channels; ++i) {
            const int flag = start + head + i * granuleBits + flagAt;
            if (bits(frame.body, flag, 1) == 1 && bits(frame.body, flag + 1, 2) == 2)
                frame.hasShortBlocks = true;
        }
    }

    void readTag(const QByteArray& name, const QByteArray& tag)
    {
        tagName = name;
        tagMethod = tag.at(129) & 15;
        tagLowpass = static_cast<unsigned char>(tag.at(130));
        isUnwise = (tag.at(144) & 32) != 0;
    }
};
