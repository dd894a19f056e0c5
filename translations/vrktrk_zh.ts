<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>完整的 GPS 数据 (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>GPX 格式 (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>OziExplorer 轨迹 (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Google Earth 轨迹 (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>正在提取 GPS 数据</translation>
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
        <translation>选择此格式以在 OziExplorer 中使用 GPS 数据</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>OziExplorer 轨迹 (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>输出文件将包含归档中 GPS 接收器的所有消息。</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>完整的 GPS 数据 (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>专为在程序之间交换 GPS 数据而设计的格式。&lt;br&gt;支持此格式的程序最多。</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>GPX 格式 (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>选择此格式以在 Google Earth 或 https://maps.google.com/ 中查看 GPS 轨迹</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>Google Earth KML (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;选择 GPS 轨迹的格式&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;所需的格式取决于您使用的软件。请查阅其手册，了解它能读取的格式。&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>VRK3 文件 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>找不到文件 %s。请重新安装此应用程序。</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>还原</translation>
    </message>
</context>
</TS>
