// A file as TagLib reads and changes it. TagLib's own takes no notice of failed writes; this one remembers
// the first, writes nothing after it, and makes sure of the room on the disk before it moves anything.
#pragma once

#include <QString>

#include <taglib/tiostream.h>

#include <vector>

class TagStream : public TagLib::IOStream {
public:
    enum class Access { Read, Write };

    /// Throws EngineError when the file can't be opened so, is no plain file or is write-protected.
    TagStream(const QString& path, Access access);
    ~TagStream() override;

    /// Throws EngineError when any change failed.
    void checkWritten() const;

    TagLib::FileName name() const override { return name_.constData(); }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector& data) override;
    void insert(const TagLib::ByteVector& data, unsigned long start = 0, unsigned long replace = 0) override;
    void removeBlock(unsigned long start = 0, unsigned long length = 0) override;
    bool readOnly() const override { return access_ == Access::Read; }
    bool isOpen() const override { return true; }
    void seek(long offset, Position from = Beginning) override;
    long tell() const override { return position_; }
    long length() override;
    void truncate(long length) override;

private:
    /// Bytes as they were before they were written over.
    struct Former {
        long offset;
        TagLib::ByteVector bytes;
    };

    bool makeRoom(long from, long distance);
    bool moveUp(long from, long end, long distance);
    bool writeAt(long offset, const char* bytes, unsigned long count);
    unsigned long readAt(long offset, char* bytes, unsigned long count) const;
    void remember(long offset, unsigned long count);
    void takeBack();
    void keep();
    void fail();

    QByteArray name_;
    Access access_;
    int descriptor_ = -1;
    long position_ = 0;
    int error_ = 0;    // errno of the first failed change

    // What can be taken back: everything since the last time that the sound was moved.
    std::vector<Former> former_;
    long formerLength_ = 0;
};
