// Straightens a camera's grey picture by its distortion map, which tells for each point where it lies in the picture.
Texture2D picture : register(t0);
Texture2D distortion : register(t1);
SamplerState pictureSampler : register(s0);

struct Point {
    float4 position : SV_Position;
    float2 at : TEXCOORD0; // v is 0 at the picture's top
};

Point VS(float3 position : POSITION) {
    Point result;
    result.position = float4(position, 1.0);
    result.at = float2(position.x * 0.5 + 0.5, 0.5 - position.y * 0.5);
    return result;
}

float4 PS(Point input) : SV_Target {
    float4 map = distortion.Sample(pictureSampler, input.at);
    float2 raw = map.xy;
    float4 sampled = picture.Sample(pictureSampler, raw);
    float4 result = float4(sampled.r, sampled.r, sampled.r, 1.0);
    float2 inside = min(raw, 1.0 - raw);
    if (min(inside.x, inside.y) < 0.0) {
        result = float4(0.0, 0.0, 0.5, 1.0); // as the target is cleared
    }
    return result;
}
