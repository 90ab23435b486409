#pragma once

namespace tul {

/// The console of the program that started this one, for a program that has none of its own because it is one
/// with windows. What the standard streams lead to already stays; on the console they write UTF-8 and read
/// the system's single bytes.
class StartersConsole {
  public:
    StartersConsole();
    ~StartersConsole();
    StartersConsole(const StartersConsole&) = delete;
    StartersConsole& operator=(const StartersConsole&) = delete;

  private:
    unsigned codePageBefore_;
    unsigned inputCodePageBefore_;
};

}  // namespace tul
