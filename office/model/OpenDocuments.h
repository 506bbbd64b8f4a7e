#pragma once

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::model {

/// The open documents of an application as the collection of its object model. The application has the
/// members documents(), add() and open().
template <class Collection, class Document, class Application>
class OpenDocuments final : public Collection {
  public:
    explicit OpenDocuments(std::shared_ptr<Application> application) : application_(std::move(application)) {}

    int Count() override { return static_cast<int>(application_->documents().size()); }
    std::shared_ptr<Document> Add(const std::string& templatePath) override {
        return application_->add(templatePath);
    }
    std::shared_ptr<Document> Open(const std::string& fileName) override {
        return application_->open(fileName);
    }
    std::shared_ptr<Document> Item(int number) override {
        return application_->documents()[this->indexOf(number)];
    }

  private:
    std::shared_ptr<Application> application_;
};

}  // namespace mergeloom::model
