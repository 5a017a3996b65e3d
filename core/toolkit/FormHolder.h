// The one instance of a form: made when it is first named, gone when it is unloaded, made anew at the next
// use.
#pragma once

#include <utility>

template <typename Form>
class FormHolder {
public:
    Form& operator*()
    {
        if (!form_) form_ = new Form;
        return *form_;
    }
    Form* operator->() { return &**this; }

    bool loaded() const { return form_ != nullptr; }
    bool visible() const { return form_ && form_->isVisible(); }

    /// Hides the form and lets go of it. It may be running a handler right now, so it dies a little later.
    void unload()
    {
        if (!form_) return;
        Form* form = std::exchange(form_, nullptr);
        form->unloading();
        form->hide();
        form->deleteLater();
    }

private:
    Form* form_ = nullptr;
};
