<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Полные данные GPS (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>Формат GPX (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>Трек OziExplorer (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Трек GoogleEarth (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>Извлечение данных GPS</translation>
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
        <translation>Выберите этот формат для передачи данных GPS в программу OziExplorer</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>Трек OziExplorer (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>В выходной файл будут записаны все сообщения, полученные от приёмника GPS и содержащиеся в архиве.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Полные данные GPS (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Формат, специально предназначенный для обмена данными GPS между программами.&lt;br&gt;Совместим с наибольшим числом программ.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>Формат GPX (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Выберите этот формат для просмотра полученного трека GPS в программе Google Earth или на сайте https://maps.google.com/</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>GoogleEarth KML (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Выберите формат трека GPS для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста, проверьте допустимые для Вашего ПО форматы в его инструкции.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>Архивы VRK3 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>Файл %s не найден. Пожалуйста, переустановите приложение.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Развернуть</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Восстановить</translation>
    </message>
</context>
</TS>
