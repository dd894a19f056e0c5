<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Vollständige GPS-Daten (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>GPX-Format (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>OziExplorer-Track (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Google-Earth-Track (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>GPS-Daten werden extrahiert</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>VrkTrk</source>
        <translation>VrkTrk</translation>
    </message>
    <message>
        <source>Выберите этот вормат для передачи данных GPS в программу OziExplorer</source>
        <translation>Wählen Sie dieses Format, um die GPS-Daten in OziExplorer zu verwenden</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>OziExplorer-Track (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>Die Ausgabedatei enthält alle Meldungen des GPS-Empfängers, die im Archiv gespeichert sind.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Vollständige GPS-Daten (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Ein Format für den Austausch von GPS-Daten zwischen Programmen.&lt;br&gt;Es wird von den meisten Programmen unterstützt.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>GPX-Format (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Wählen Sie dieses Format, um den GPS-Track in Google Earth oder auf https://maps.google.com/ anzusehen</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>Google Earth KML (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Wählen Sie ein Format für den GPS-Track&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Welches Format Sie brauchen, hängt von Ihrer Software ab. Welche Formate sie lesen kann, steht in ihrem Handbuch.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>VRK3-Dateien (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>Die Datei %s wurde nicht gefunden. Bitte installieren Sie das Programm neu.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
</TS>
