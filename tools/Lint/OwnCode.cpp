// A plugin for clang-tidy that shows its checks the project's own declarations alone.
//
// The checks would otherwise walk through all that Qt's and the standard library's headers declare,
// for each file anew, only to leave out what they find there. The compiler still reads everything,
// and a check may still follow a name of ours to what it stands for elsewhere. Only a check that
// follows calls into the code of others and back, misc-no-recursion, misses what comes that way.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <string>
#include <vector>

namespace {

/// Whether a declaration stands in a file of ours. One that a macro made stands where the macro
/// was used.
bool isOwn(const clang::Decl& declaration, const clang::SourceManager& sources) {
    const auto place = declaration.getBeginLoc();
    return place.isValid() && !sources.isInSystemHeader(place);
}

class OwnCode final : public clang::ASTConsumer {
public:
    void HandleTranslationUnit(clang::ASTContext& context) override {
        std::vector<clang::Decl*> own;
        for (auto* declaration : context.getTranslationUnitDecl()->decls())
            if (isOwn(*declaration, context.getSourceManager()))
                own.push_back(declaration);
        context.setTraversalScope(own);
    }
};

/// Runs before the checks do.
class OwnCodeAction final : public clang::PluginASTAction {
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&,
                                                          llvm::StringRef) override {
        return std::make_unique<OwnCode>();
    }
    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override {
        return true;
    }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<OwnCodeAction>
    registration("own-code", "show the checks the project's own declarations alone");

} // namespace
