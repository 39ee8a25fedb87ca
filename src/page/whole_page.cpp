#include "page/whole_page.h"

#include "page/page.h"
#include "page/page_style.h"
#include "page/page_text.h"

namespace pedigreewatch {

std::string whole_page(ToolLanguage language, std::string_view title, std::string_view body, std::string_view footer) {
  std::string page = "<!DOCTYPE html>\n<html lang=\"";
  page += language == ToolLanguage::english ? "en" : "nl";
  page += "\">\n<head>\n<meta charset=\"utf-8\">\n<meta http-equiv=\"Content-Security-Policy\" content=\"";
  page += content_security_policy();
  page += "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
  page += escaped(title);
  page += "</title>\n<style>";
  page += page_style();
  page += "</style>\n</head>\n<body class=\"pw\">\n<header><h1>" + isolated(title) + "</h1></header>\n<main>\n";
  page += body;
  page += "</main>\n<footer><p>" + escaped(footer) + "</p></footer>\n<script>";
  page += page_script();
  page += "</script>\n</body>\n</html>\n";
  return page;
}

}  // namespace pedigreewatch
