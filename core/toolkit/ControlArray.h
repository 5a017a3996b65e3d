// Indexed display objects. Index 0 is a template that is never shown; the others are made and unmade at run
// time.
#pragma once

#include "core/Errors.h"

#include <functional>
#include <map>
#include <memory>

template <typename Item>
class ControlArray {
public:
    /// Makes the item of an index, hidden, in the template's place.
    using Maker = std::function<std::unique_ptr<Item>(int index)>;

    explicit ControlArray(Maker make) : make_(std::move(make)) { load(0); }

    Item& load(int index)
    {
        items_[index] = make_(index);
        items_[index]->setVisible(false);
        return *items_[index];
    }

    Item& operator()(int index)
    {
        const auto found = items_.find(index);
        if (found == items_.end()) throw ConversionError(QStringLiteral("no item %1").arg(index));
        return *found->second;
    }

    int UBound() const { return items_.rbegin()->first; }

    /// Unloads everything but the template.
    void unloadAll() { items_.erase(items_.upper_bound(0), items_.end()); }

private:
    Maker make_;
    std::map<int, std::unique_ptr<Item>> items_;
};
