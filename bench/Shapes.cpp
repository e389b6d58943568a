// SPDX-License-Identifier: GPL-3.0-or-later
#include "Shapes.h"

namespace {

constexpr QByteArrayView head =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>Harbour news</title>\n"
    "<link rel=\"stylesheet\" href=\"/styles/main.css\">\n<link rel=\"icon\" href=\"/favicon.ico\">\n"
    "<script>var page = { section: \"news\", ready: function () { return 1 < 2; } };</script>\n</head>\n<body>\n"
    "<iframe src=\"/frames/weather.html\" width=\"300\" height=\"80\"></iframe>\n";

constexpr QByteArrayView article =
    "<div class=\"article teaser wide\" id=\"article-%\"><div class=\"inner\">\n"
    "<h2 class=\"headline\"><a class=\"headline-link\" href=\"/news/2024/article%.html\" title=\"Read on\">"
    "The tide turns twice a day</a></h2>\n"
    "<span class=\"byline\">By <a rel=\"author\" href=\"/people/writer%.html\">a writer</a>, <time>12 May</time></span>"
    "\n<p class=\"text\">The tide turns twice a day, and the boats turn with it; whoever is late waits six hours at "
    "the quay. <em>Nobody</em> has ever seen the harbour master wait. He knows the hour by the smell of the mud, he "
    "says, and by the gulls, who leave the mole before the water does.</p>\n"
    "<figure class=\"picture\"><img class=\"lazy\" alt=\"Boats at the quay\" width=\"640\" height=\"360\" "
    "src='/images/boats%.jpg'><figcaption>Boats at low water</figcaption></figure>\n"
    "<ul class=\"related\"><li><a href=\"../related/story%.html\">Related</a></li>"
    "<li class=\"last\"><a href=\"../tags/harbour.html\">harbour</a></li></ul>\n"
    "<form class=\"rate\" method=\"post\" action=\"/rate/%\"><input type=\"hidden\" name=\"id\" value=\"%\">"
    "<button type=\"submit\">Useful</button></form>\n</div></div>\n";

} // namespace

QByteArray shapes::urlOf(qint64 number)
{
    return "http://www.example.org:80/section" + QByteArray::number(number / pagesOfSection) + "/issue"
        + QByteArray::number(number / pagesOfIssue) + "/page" + QByteArray::number(number) + ".html";
}

QByteArrayList shapes::urlsFrom(qint64 first, qint64 count)
{
    QByteArrayList urls;
    urls.reserve(count);
    for (qint64 number = first; number < first + count; ++number)
        urls += urlOf(number);
    return urls;
}

QByteArrayList shapes::linksOf(qint64 number)
{
    return urlsFrom(0, navigationLinks) + urlsFrom(qMax(0, number - neighbourLinks / 2), neighbourLinks)
        + urlsFrom(number * childrenOfPage + 1, childrenOfPage);
}

FundStück shapes::itemOf(qint64 number, const QByteArray& referer)
{
    FundStück item;
    item.adresse = urlOf(number);
    item.zustand = FetchState::Finished;
    item.groesse = number % 7 == 0 ? -1 : 1000 + number * 7919 % 100'000;
    for (qint64 page = number; page > 0; page = parentOf(page))
        ++item.tiefe;
    item.statusCode = number % 50 == 49 ? 404 : 200;
    item.mimeTyp = number % 10 == 9 ? "application/pdf" : number % 5 == 4 ? "image/png" : "text/html";
    item.sprache = "en";
    item.referer = referer;
    item.referenzTyp = number % 5 == 4 ? ReferenceType::Img : ReferenceType::Anchor;
    return item;
}

void shapes::fill(FundListe& list, qint64 items)
{
    QByteArray referer;
    for (qint64 number = 0; number < items; ++number) {
        if (number % childrenOfPage == 1)
            referer = urlOf(parentOf(number));
        list.add(itemOf(number, referer));
    }
}

ResultFilter shapes::fiveTests()
{
    ResultFilter filter;
    filter.depth = { true, 1, 6 };
    filter.size = { true, 2000, 1'000'000 };
    filter.mimeSwitch = FilterSwitch::Whitelist;
    for (const char* type : { "text/html", "image/png" })
        filter.mimeListe.insert(type).listed = true;
    filter.urlSwitch = FilterSwitch::Whitelist;
    filter.filterTexte = { "story", "9" };
    filter.branch = SubUrl { "http://www.example.org:80/", 4 };
    return filter;
}

QByteArray shapes::htmlPage(qsizetype size)
{
    QByteArray page = head.toByteArray();
    for (int number = 0; page.size() < size; ++number)
        page += article.toByteArray().replace('%', QByteArray::number(number));
    return page + "</body>\n</html>\n";
}
