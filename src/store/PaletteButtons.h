#pragma once
#include "store/Btn.h"

#include <QByteArray>
#include <memory>
#include <string_view>

class QFile;

// The data file's text while some palettes' buttons are still to be read from it. Read from
// disk it is the file mapped into memory, until keep copies it: the file may change on disk
// while the program runs, the text must not.
class StoreText {
public:
    explicit StoreText(QByteArray bytes);
    // Throws IOException when the file cannot be read whole.
    static std::shared_ptr<StoreText> fromFile(const QString& path);
    ~StoreText();
    std::string_view view() const { return text; }
    void keep();

private:
    StoreText() = default;
    QByteArray owned;
    std::unique_ptr<QFile> mapped;
    std::string_view text;
};

// The buttons of a palette slot. A palette read from the data file keeps its buttons as text,
// checked already, until they are first asked for: a start builds only the palette it shows.
// Used as the array itself: `*slot.a_Btn`, `slot.a_Btn->at(7)`, `aBtn = slot.a_Btn`.
class PaletteButtons {
public:
    PaletteButtons() = default;
    PaletteButtons(BtnArray buttons) : array(std::move(buttons)) {}
    PaletteButtons(std::shared_ptr<StoreText> source, size_t begin, size_t end)
        : text(std::move(source)), begin(begin), end(end) {}

    const BtnArray& get() const {
        if (text) read();
        return array;
    }
    operator const BtnArray&() const { return get(); }
    std::vector<BtnRef>* operator->() const { return get().get(); }
    std::vector<BtnRef>& operator*() const { return *get(); }
    explicit operator bool() const { return text || array; }
    bool isRead() const { return !text; }
    friend bool operator==(const PaletteButtons& buttons, const BtnArray& other) { return buttons.get() == other; }
    // The text of buttons not yet read no longer depends on the file on disk.
    void keepText() const {
        if (text) text->keep();
    }

private:
    void read() const; // with the data file's reading
    mutable BtnArray array;
    mutable std::shared_ptr<StoreText> text;
    size_t begin = 0, end = 0;
};
