// Reads and writes the tags of a file, whichever kind of file its content shows it to be.
#pragma once

#include "core/AudioEngine.h"
#include "engine/TagFields.h"

class TagEngine : public AudioTag {
public:
    void ReadFrom(const QString& path) override;
    void WriteTo(const QString& path) override;

    /// Throws for other than 1 and 2. Ogg and WMA files know one kind of tag, which both versions write.
    void SetTagVersion(std::int32_t version) override;

    QString GetTitle() const override { return read_.title; }
    QString GetArtist() const override { return read_.artist; }
    QString GetAlbum() const override { return read_.album; }
    QString GetComment() const override { return read_.comment; }
    std::int32_t GetGenre() const override { return read_.genre; }
    std::int32_t GetYear() const override { return read_.year; }
    QString GetGenreName(std::int32_t index) const override { return genreName(index); }

    void SetTitle(const QString& text) override { write_.title = text; }
    void SetArtist(const QString& text) override { write_.artist = text; }
    void SetAlbum(const QString& text) override { write_.album = text; }
    void SetComment(const QString& text) override { write_.comment = text; }
    void SetGenre(std::int32_t index) override { write_.genre = index; }
    void SetYear(std::int32_t year) override { write_.year = year; }
    void SetTrack(std::int32_t number) override { write_.track = number; }
    void SetEncodedBy(const QString& text) override { write_.encodedBy = text; }

private:
    TagFields read_;
    TagFields write_;
    std::int32_t version_ = 2;
};
