#ifndef CONTENTSJSON_H
#define CONTENTSJSON_H

#include <QJsonObject>

class cContents;

// Returns the contents of an archive as the JSON object that docs/vrk3-info.md describes.
QJsonObject contentsJson(const cContents &contents);

#endif
